#include "UDigitadorItens.h"

#include "Money.h"
#include "TItemNota.h"
#include "TItemNotaTela.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

namespace {

constexpr int PausaLinhaMs = 100;
constexpr int PausaBuscaMs = 1000;
constexpr int PausaCampoMs = 70;

// The fields after the product code, in the order they are typed, and the column each takes.
// The ICMS base reduction takes the row's ST base reduction; the row's own is not typed.
// A null column is the constant "1": the quantity goes in as packages of one unit.
struct CampoDigitado
{
    const char *controle;
    const char *coluna;
};

const CampoDigitado Campos[] = {
    {"NCMMaskEdit", "NCM"},
    {"CFOPItemNumEditBR", "CFOP"},
    {"pIPINumEditBR", "PIPI"},
    {"vIPINumEditBR", "VIPI"},
    {"CSTNumEditBR", "CST"},
    {"OrigMercNumEditBR", "ORIGEM_MERC"},
    {"EmbQtdNumEditBR", nullptr},
    {"QtdEmbsNumEditBR", "QTD"},
    {"CustoTotItemNumEditBR", "CUSTO_TOT"},
    {"DescontoItemNumEditBR", "DESCONTO"},
    {"OutrasItemNumEditBR", "OUTRAS"},
    {"FreteItemNumEditBR", "FRETE"},
    {"SeguroItemNumEditBR", "SEGURO"},
    {"modBCNumEditBR", "ICMS_BC_MOD"},
    {"vBCNumEditBR", "ICMS_BC_VAL"},
    {"pICMSNumEditBR", "ICMS_PERC"},
    {"vICMSNumEditBR", "ICMS_VAL"},
    {"modBCSTNumEditBR", "ICMS_ST_BC_MOD"},
    {"pMVASTNumEditBR", "ICMS_ST_PERC_AD"},
    {"pRedBCSTNumEditBR", "ICMS_ST_PERC_RED"},
    {"pRedBCNumEditBR", "ICMS_ST_PERC_RED"},
    {"vBCSTNumEditBR", "ICMS_ST_BC_VAL"},
    {"pICMSSTNumEditBR", "ICMS_ST_PERC"},
    {"vICMSSTNumEditBR", "ICMS_ST_VAL"},
    {"vBCFCPNumEditBR", "ICMS_VBCFCP"},
    {"pFCPNumEditBR", "ICMS_PFCP"},
    {"vFCPNumEditBR", "TRIB_ICMS_VFCP"},
    {"vBCFCPSTNumEditBR", "ICMS_VBCFCPST"},
    {"pFCPSTNumEditBR", "ICMS_PFCPST"},
    {"vFCPSTNumEditBR", "TRIB_ICMS_VFCPST"},
};

// A real key press, so that the field's own handlers (and the screen's Enter-as-Tab) see it.
void TeclarEnter(QWidget *campo)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QCoreApplication::sendEvent(campo, &press);
    QCoreApplication::sendEvent(campo, &release);
}

} // namespace

TDigitadorItens::TDigitadorItens(const TTelaNota &tela) : m_tela(tela) {}

void TDigitadorItens::DigitarLinha(const TValor &valor)
{
    aguardar(PausaLinhaMs);
    digitarBusca(valor(QStringLiteral("PROD_COD")));
    for (const CampoDigitado &c : Campos) {
        auto *campo = m_tela.panel.findChild<QWidget *>(QLatin1String(c.controle));
        Q_ASSERT(campo);
        definir(campo, c.coluna ? valor(QLatin1String(c.coluna)) : QStringLiteral("1"));
    }
    const QList<TNumEditBR *> &precos = m_tela.tela.PrecoEdits();
    if (precos.isEmpty()) {
        enter(m_tela.itemNota.PrecoUltimoEdit());
        return;
    }
    for (TNumEditBR *preco : precos)
        enter(preco);
}

void TDigitadorItens::digitarBusca(const QString &texto)
{
    QLineEdit *busca = m_tela.panel.BuscaLabeledEdit();
    busca->setFocus(Qt::OtherFocusReason);
    busca->setText(texto);
    TeclarEnter(busca);
    aguardar(PausaBuscaMs);
}

void TDigitadorItens::definir(QWidget *campo, const QString &texto)
{
    campo->setFocus(Qt::OtherFocusReason);
    if (auto *numero = qobject_cast<TNumEditBR *>(campo)) {
        const QString t = texto.trimmed();
        numero->SetMoney(Money::parse(t).value_or(Money::parseBR(t).value_or(Money())));
    } else if (auto *edit = qobject_cast<QLineEdit *>(campo)) {
        edit->setText(texto);
    }
    aguardar(PausaCampoMs);
}

void TDigitadorItens::enter(QWidget *campo)
{
    campo->setFocus(Qt::OtherFocusReason);
    TeclarEnter(campo);
    aguardar(PausaCampoMs);
}

// The panel's reactions to a field run as the field's own events; only the product list closes
// later, on a timer. The clerk's own keys wait until the typing is over.
void TDigitadorItens::aguardar(int limiteMs)
{
    const QDeadlineTimer prazo(limiteMs);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    while (!ocioso() && !prazo.hasExpired()) {
        QTimer acordar;
        acordar.setSingleShot(true);
        acordar.start(int(std::min<qint64>(prazo.remainingTime(), 10)));
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    }
}

bool TDigitadorItens::ocioso() const
{
    return !m_tela.panel.ProdPanel()->isVisible();
}
