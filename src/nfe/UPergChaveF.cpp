#include "UPergChaveF.h"

#include "Dialogos.h"
#include "ExecutarModal.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QValidator>

namespace {

// At most 44 characters besides the blanks around them, which OK trims away.
class TLimiteChave final : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString &texto, int &) const override
    {
        return texto.trimmed().size() <= 44 ? Acceptable : Invalid;
    }
};

} // namespace

TPergChaveF::TPergChaveF(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("PergChaveF"));
    setWindowTitle(QStringLiteral("Chave NF-e"));
    m_chaveEdit = new QLineEdit(this);
    m_chaveEdit->setObjectName(QStringLiteral("ChaveEdit"));
    m_chaveEdit->setValidator(new TLimiteChave(m_chaveEdit));
    m_chaveEdit->setMinimumWidth(m_chaveEdit->fontMetrics().horizontalAdvance(QString(46, u'9')));
    auto *botoes = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    botoes->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    connect(botoes, &QDialogButtonBox::accepted, this, &TPergChaveF::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &TPergChaveF::reject);
    auto *layout = new QFormLayout(this);
    layout->addRow(QStringLiteral("Chave"), m_chaveEdit);
    layout->addRow(botoes);
}

bool TPergChaveF::PodeOk()
{
    m_chaveEdit->setText(m_chaveEdit->text().trimmed());
    if (m_chaveEdit->text().size() != 44) {
        MensagemInfo(QStringLiteral("A chave deve ter 44 caracteres"));
        m_chaveEdit->setFocus();
        return false;
    }
    return true;
}

void TPergChaveF::accept()
{
    if (PodeOk())
        QDialog::accept();
}

bool Perg(QString &Chave, QWidget *parent)
{
    TPergChaveF dialogo(parent);
    dialogo.ChaveEdit()->setText(Chave);
    if (ExecutarModal(dialogo) != QDialog::Accepted)
        return false;
    Chave = dialogo.ChaveEdit()->text();
    return true;
}
