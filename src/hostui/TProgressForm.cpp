#include "TProgressForm.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {
void manterVivo()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
} // namespace

TProgressForm::~TProgressForm()
{
    // A window left without a parent goes with us, but never after the application.
    if (QCoreApplication::instance())
        delete m_janela;
}

QWidget *TProgressForm::janela()
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return nullptr;
    if (!m_janela) {
        m_janela = new QWidget(QApplication::activeWindow(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
        m_janela->setObjectName(QStringLiteral("ProgressForm"));
        m_janela->setWindowTitle(QStringLiteral("Aguarde"));
        m_janela->setWindowModality(Qt::ApplicationModal);
        auto *layout = new QVBoxLayout(m_janela);
        m_texto = new QLabel(m_janela);
        m_barra = new QProgressBar(m_janela);
        layout->addWidget(m_texto);
        layout->addWidget(m_barra);
        m_janela->setMinimumWidth(360);
    }
    return m_janela;
}

void TProgressForm::Exibir(const QString &texto, int maximo)
{
    QWidget *w = janela();
    if (!w)
        return;
    m_texto->setText(texto);
    m_barra->setVisible(maximo > 0);
    m_barra->setRange(0, qMax(maximo, 1));
    m_barra->setValue(0);
    w->show();
    w->raise();
    manterVivo();
}

void TProgressForm::PegarAtual(int atual, const QString &texto)
{
    if (!m_janela || !m_janela->isVisible())
        return;
    if (!texto.isEmpty())
        m_texto->setText(texto);
    if (atual > 0)
        m_barra->setValue(qMin(atual, m_barra->maximum()));
    manterVivo();
}

void TProgressForm::Fechar()
{
    if (m_janela)
        m_janela->hide();
}
