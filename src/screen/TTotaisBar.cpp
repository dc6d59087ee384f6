#include "TTotaisBar.h"

#include "Money.h"
#include "Valores.h"

#include <QGridLayout>
#include <QLabel>

namespace {

const QColor CorConcorda(0xd4, 0xef, 0xd4);
const QColor CorDiscorda(0xf6, 0xd0, 0xd0);

} // namespace

TTotaisBar::TTotaisBar(QWidget *parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("TotaisBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);

    auto *grade = new QGridLayout(this);
    grade->setContentsMargins(8, 3, 8, 3);
    grade->setHorizontalSpacing(14);
    grade->setVerticalSpacing(0);

    m_totProd = NovoValor("TotProdItensLabel", tr("Produtos"), tr("Total dos produtos dos itens"));
    m_desconto = NovoValor("DescontoItensLabel", tr("Desconto"), tr("Desconto dos itens"));
    m_icms = NovoValor("ICMSItensLabel", tr("ICMS"), tr("ICMS dos itens"));
    m_icmsST = NovoValor("ICMSSTItensLabel", tr("ICMS ST"), tr("ICMS ST dos itens"));
    m_fcp = NovoValor("FCPItensLabel", tr("FCP"), tr("FCP dos itens"));
    m_fcpST = NovoValor("FCPSTItensLabel", tr("FCP ST"), tr("FCP ST dos itens"));
    m_ipi = NovoValor("IPIItensLabel", tr("IPI"), tr("IPI dos itens"));
    m_outras = NovoValor("OutrasItensLabel", tr("Outras Desp."), tr("Outras despesas dos itens"));
    m_frete = NovoValor("FreteItensLabel", tr("Frete"), tr("Frete dos itens"));
    m_seguro = NovoValor("SeguroItensLabel", tr("Seguro"), tr("Seguro dos itens"));
    m_tot = NovoValor("TotItensLabel", tr("Total"), tr("Total da nota pelos itens"), true);
    m_nItens = NovoValor("NItensLabel", tr("Itens"), tr("Número de itens"));
    m_nItens->setMinimumWidth(m_nItens->fontMetrics().horizontalAdvance(QStringLiteral("9999")));
    grade->setColumnStretch(m_coluna, 1);
    Zerar();
}

QLabel *TTotaisBar::NovoValor(const char *nome, const QString &rotulo, const QString &dica, bool negrito)
{
    auto *grade = static_cast<QGridLayout *>(layout());
    auto *titulo = new QLabel(rotulo, this);
    titulo->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    QFont pequeno = titulo->font();
    pequeno.setPointSizeF(pequeno.pointSizeF() * 0.85);
    titulo->setFont(pequeno);
    titulo->setForegroundRole(QPalette::PlaceholderText);
    auto *valor = new QLabel(this);
    valor->setObjectName(QLatin1String(nome));
    valor->setAlignment(Qt::AlignRight | Qt::AlignTop);
    if (negrito) {
        QFont f = valor->font();
        f.setBold(true);
        valor->setFont(f);
    }
    valor->setToolTip(dica);
    titulo->setToolTip(dica);
    // Room for six digits, so the bar keeps its shape while the usual values grow.
    valor->setMinimumWidth(valor->fontMetrics().horizontalAdvance(FormatarValor(Money::fromInt(999999))));
    grade->addWidget(titulo, 0, m_coluna);
    grade->addWidget(valor, 1, m_coluna);
    ++m_coluna;
    return valor;
}

QString TTotaisBar::FormatarValor(Money valor)
{
    return QStringLiteral("R$ ") + FormatFloat(QStringLiteral("#,###,##0.00"), valor);
}

void TTotaisBar::SetTotProd(Money valor) { m_totProd->setText(FormatarValor(valor)); }
void TTotaisBar::SetDesconto(Money valor) { m_desconto->setText(FormatarValor(valor)); }
void TTotaisBar::SetICMS(Money valor) { m_icms->setText(FormatarValor(valor)); }
void TTotaisBar::SetICMSST(Money valor) { m_icmsST->setText(FormatarValor(valor)); }
void TTotaisBar::SetFCP(Money valor) { m_fcp->setText(FormatarValor(valor)); }
void TTotaisBar::SetFCPST(Money valor) { m_fcpST->setText(FormatarValor(valor)); }
void TTotaisBar::SetIPI(Money valor) { m_ipi->setText(FormatarValor(valor)); }
void TTotaisBar::SetOutras(Money valor) { m_outras->setText(FormatarValor(valor)); }
void TTotaisBar::SetFrete(Money valor) { m_frete->setText(FormatarValor(valor)); }
void TTotaisBar::SetSeguro(Money valor) { m_seguro->setText(FormatarValor(valor)); }
void TTotaisBar::SetTot(Money valor) { m_tot->setText(FormatarValor(valor)); }
void TTotaisBar::SetNItens(int quantos) { m_nItens->setText(QString::number(quantos)); }

void TTotaisBar::Zerar()
{
    for (QLabel *valor : {m_totProd, m_desconto, m_icms, m_icmsST, m_fcp, m_fcpST, m_ipi, m_outras, m_frete,
                          m_seguro, m_tot})
        valor->setText(FormatarValor(Money()));
    SetNItens(0);
    SetNeutra();
}

void TTotaisBar::SetConcorda(bool concorda)
{
    m_estado = concorda ? Concordancia::Concorda : Concordancia::Discorda;
    Pintar();
}

void TTotaisBar::SetNeutra()
{
    m_estado = Concordancia::Neutra;
    Pintar();
}

void TTotaisBar::Pintar()
{
    QPalette cores = QPalette();
    if (m_estado != Concordancia::Neutra)
        cores.setColor(QPalette::Window, m_estado == Concordancia::Concorda ? CorConcorda : CorDiscorda);
    setPalette(cores);
}
