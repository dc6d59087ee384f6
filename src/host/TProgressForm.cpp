#include "TProgressForm.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {
QPointer<QWidget> g_janela;
QLabel *g_texto = nullptr;
QProgressBar *g_barra = nullptr;

void manterVivo()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
} // namespace

QWidget *TProgressForm::janela()
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return nullptr;
    if (!g_janela) {
        g_janela = new QWidget(QApplication::activeWindow(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
        g_janela->setObjectName(QStringLiteral("ProgressForm"));
        g_janela->setWindowTitle(QStringLiteral("Aguarde"));
        g_janela->setWindowModality(Qt::ApplicationModal);
        auto *layout = new QVBoxLayout(g_janela);
        g_texto = new QLabel(g_janela);
        g_barra = new QProgressBar(g_janela);
        layout->addWidget(g_texto);
        layout->addWidget(g_barra);
        g_janela->setMinimumWidth(360);
    }
    return g_janela;
}

void TProgressForm::Exibir(const QString &texto, int maximo)
{
    QWidget *w = janela();
    if (!w)
        return;
    g_texto->setText(texto);
    g_barra->setVisible(maximo > 0);
    g_barra->setRange(0, qMax(maximo, 1));
    g_barra->setValue(0);
    w->show();
    w->raise();
    manterVivo();
}

void TProgressForm::Avancar(int posicao)
{
    if (!g_janela || !g_janela->isVisible())
        return;
    g_barra->setValue(qMin(posicao, g_barra->maximum()));
    manterVivo();
}

void TProgressForm::Fechar()
{
    if (g_janela)
        g_janela->hide();
}

bool TProgressForm::Visivel()
{
    return g_janela && g_janela->isVisible();
}

int TProgressForm::Posicao()
{
    return g_barra && g_janela ? g_barra->value() : 0;
}
