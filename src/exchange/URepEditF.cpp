#include "URepEditF.h"

#include "TMemoSemAcento.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QPlainTextEdit *Memo(QWidget *pai, const char *nome, int limite)
{
    auto *memo = new TMemoSemAcento(limite, false, pai);
    memo->setObjectName(QLatin1String(nome));
    memo->setMinimumWidth(560);
    return memo;
}

QLabel *Rotulo(QWidget *pai, const QString &texto, QWidget *campo)
{
    auto *rotulo = new QLabel(texto, pai);
    rotulo->setBuddy(campo);
    return rotulo;
}

} // namespace

TRepEditF::TRepEditF(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("RepEditF"));
    m_fisco = Memo(this, "InfAdicFiscoMemo", MaxFisco);
    m_contribuinte = Memo(this, "InfAdicContribuinteMemo", MaxContribuinte);
    // The taxpayer's text may be longer: it gets the room that is left.
    m_fisco->setMinimumHeight(120);
    m_contribuinte->setMinimumHeight(200);

    auto *botoes = new QDialogButtonBox(this);
    m_ok = botoes->addButton(QStringLiteral("Ok"), QDialogButtonBox::AcceptRole);
    m_ok->setObjectName(QStringLiteral("OkButton"));
    m_cancelar = botoes->addButton(QStringLiteral("Cancelar"), QDialogButtonBox::RejectRole);
    m_cancelar->setObjectName(QStringLiteral("CancelarButton"));
    connect(botoes, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(Rotulo(this, QStringLiteral("Informações do Fisco"), m_fisco));
    layout->addWidget(m_fisco, 2);
    layout->addWidget(Rotulo(this, QStringLiteral("Informações do Contribuinte"), m_contribuinte));
    layout->addWidget(m_contribuinte, 3);
    layout->addWidget(botoes);
    resize(720, 520);

    for (QWidget *w : QList<QWidget *>{m_fisco, m_contribuinte, m_ok, m_cancelar})
        w->installEventFilter(this);
    m_fisco->setFocus();
}

bool TRepEditF::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(objeto, evento);
    const int tecla = static_cast<QKeyEvent *>(evento)->key();
    if (tecla == Qt::Key_Escape) {
        m_cancelar->click();
        return true;
    }
    // Whatever the modifiers: Shift+Enter would otherwise break the line.
    if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
        if (objeto == m_fisco) {
            m_contribuinte->setFocus();
            return true;
        }
        if (objeto == m_contribuinte) {
            m_ok->click();
            return true;
        }
    }
    return QDialog::eventFilter(objeto, evento);
}
