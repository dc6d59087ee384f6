#include "Unfecancjustificativaf.h"

#include "ExecutarModal.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int Minimo = 15, Maximo = 255;
}

TNfeCancJustificativaF::TNfeCancJustificativaF(int nfeNum, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("NfeCancJustificativaF"));
    setWindowTitle(QStringLiteral("Cancelamento da NF-e %1").arg(nfeNum));
    auto *rotulo = new QLabel(QStringLiteral("Justificativa do cancelamento (de %1 a %2 caracteres):").arg(Minimo).arg(Maximo),
                              this);
    m_texto = new QPlainTextEdit(this);
    m_texto->setObjectName(QStringLiteral("JustificativaMemo"));
    m_texto->setTabChangesFocus(true);
    rotulo->setBuddy(m_texto);
    m_contador = new QLabel(this);
    m_contador->setObjectName(QStringLiteral("ContadorLabel"));
    auto *botoes = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = botoes->button(QDialogButtonBox::Ok);
    m_ok->setObjectName(QStringLiteral("OkButton"));
    botoes->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    connect(botoes, &QDialogButtonBox::accepted, this, &TNfeCancJustificativaF::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &TNfeCancJustificativaF::reject);
    connect(m_texto, &QPlainTextEdit::textChanged, this, &TNfeCancJustificativaF::TextoAlterado);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(rotulo);
    layout->addWidget(m_texto, 1);
    layout->addWidget(m_contador);
    layout->addWidget(botoes);
    resize(520, 240);
    TextoAlterado();
}

void TNfeCancJustificativaF::DefinirTexto(const QString &texto)
{
    m_texto->setPlainText(texto);
}

QString TNfeCancJustificativaF::Texto() const
{
    return m_texto->toPlainText().trimmed();
}

void TNfeCancJustificativaF::TextoAlterado()
{
    // The authority counts the text without the blanks around it.
    const int tamanho = int(Texto().size());
    m_contador->setText(QStringLiteral("%1 de %2 caracteres").arg(tamanho).arg(Maximo));
    m_ok->setEnabled(tamanho >= Minimo && tamanho <= Maximo);
}

bool TNfeCancJustificativaF::Perguntar(int nfeNum, QString &justificativa)
{
    TNfeCancJustificativaF dialogo(nfeNum);
    dialogo.DefinirTexto(justificativa);
    if (ExecutarModal(dialogo) != QDialog::Accepted)
        return false;
    justificativa = dialogo.Texto();
    return true;
}
