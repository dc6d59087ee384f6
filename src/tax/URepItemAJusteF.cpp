#include "URepItemAJusteF.h"

#include "Dialogos.h"
#include "ExecutarModal.h"
#include "TMemoSemAcento.h"
#include "TNumEditBR.h"
#include "TextosHost.h"
#include "UTipoDoc.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

#include <limits>

namespace {

TNumEditBR *NumEdit(QWidget *parent, const char *nome, int casas, const QString &dica = {})
{
    auto *edit = new TNumEditBR(parent);
    edit->setObjectName(QLatin1String(nome));
    edit->SetDecimals(casas);
    edit->SetValue(0);
    edit->setToolTip(dica);
    return edit;
}

// A whole-number edit holds up to 14 digits; a code is an int.
int Codigo(double valor)
{
    return int(qBound(double(std::numeric_limits<int>::min()), valor, double(std::numeric_limits<int>::max())));
}

} // namespace

TRepItemAJusteF::TRepItemAJusteF(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("RepItemAJusteF"));
    setWindowTitle(QStringLiteral("Ajustar Item"));
    m_prodLabel = new QLabel(this);
    m_prodLabel->setObjectName(QStringLiteral("ProdLabel"));
    m_ncm = new QLineEdit(this);
    m_ncm->setObjectName(QStringLiteral("NCMMaskEdit"));
    // Eight optional digits shown as 9999.99.99 with '_' for the blanks.
    m_ncm->setInputMask(QStringLiteral("0000.00.00;_"));
    m_cfop = NumEdit(this, "CfopNumEditBR", 0);
    m_cst = NumEdit(this, "TratICMSNumEditBR", 0);
    m_pRedBC = NumEdit(this, "pRedBCNumEditBR", 2, QStringLiteral("Percentual da Redução de BC do ICMS"));
    m_pRedBCST = NumEdit(this, "pRedBCSTNumEditBR", 2, QStringLiteral("Percentual da Redução de BC do ICMS ST"));
    m_infoAdic = new TMemoSemAcento(MaxInfoAdic, true, this);
    m_infoAdic->setObjectName(QStringLiteral("InfoAdicMemo"));
    m_icmsUF = new QToolButton(this);
    m_icmsUF->setObjectName(QStringLiteral("ICMSUFToolButton"));
    m_icmsUF->setText(QStringLiteral("ICMS UF Destinatário"));

    auto *botoes = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    botoes->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    connect(botoes, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QFormLayout(this);
    layout->addRow(m_prodLabel);
    layout->addRow(QStringLiteral("NCM"), m_ncm);
    layout->addRow(QStringLiteral("CFOP"), m_cfop);
    layout->addRow(QStringLiteral("CST"), m_cst);
    layout->addRow(QStringLiteral("BC %Red"), m_pRedBC);
    layout->addRow(QStringLiteral("BC ST%Red"), m_pRedBCST);
    layout->addRow(QStringLiteral("Informações Adicionais"), m_infoAdic);
    layout->addRow(m_icmsUF);
    layout->addRow(botoes);
    m_ncm->setFocus();
}

QString TRepItemAJusteF::NCM() const
{
    return m_ncm->text().remove(u'.');
}

void TRepItemAJusteF::SetNCM(const QString &ncm)
{
    m_ncm->setText(ncm);
}

// Enter in a one-line field moves on like Tab; the text keeps it for new lines and the buttons
// for pressing.
void TRepItemAJusteF::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !(event->modifiers() & ~Qt::KeypadModifier) && qobject_cast<QLineEdit *>(focusWidget())) {
        focusNextChild();
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

bool Perg(const QString &Titulo, int &CFOP, int &CST, double &pRedBCST, double &pRedBC, QString &InfoAdic,
          QString &NCM, int FornecCod, int Valor1, int Valor2, int Valor3, int TipoDocCod, QWidget *parent)
{
    if (TipoDocCod != TipoDoc::NotaComplementar && FornecCod < 1) {
        MensagemProib(QStringLiteral("Fornecedor não indicado na nota (TipoDoc=%1)").arg(TipoDocCod));
        return false;
    }
    TRepItemAJusteF dialogo(parent);
    dialogo.GuardarValores(Valor1, Valor2, Valor3);
    dialogo.ProdLabel()->setText(Titulo);
    dialogo.SetNCM(NCM);
    dialogo.CfopNumEditBR()->SetValue(CFOP);
    dialogo.TratICMSNumEditBR()->SetValue(CST);
    dialogo.pRedBCNumEditBR()->SetValue(pRedBC);
    dialogo.pRedBCSTNumEditBR()->SetValue(pRedBCST);
    dialogo.InfoAdicMemo()->setPlainText(InfoAdic);
    if (ExecutarModal(dialogo) != QDialog::Accepted)
        return false;
    NCM = dialogo.NCM();
    CFOP = Codigo(dialogo.CfopNumEditBR()->Value());
    CST = Codigo(dialogo.TratICMSNumEditBR()->Value());
    pRedBC = dialogo.pRedBCNumEditBR()->Value();
    pRedBCST = dialogo.pRedBCSTNumEditBR()->Value();
    InfoAdic = StrSemEspacoDuplo(dialogo.InfoAdicMemo()->toPlainText());
    return true;
}
