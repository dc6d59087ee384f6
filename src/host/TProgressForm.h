#pragma once

#include <QString>

class QLabel;
class QProgressBar;
class QWidget;

// The host's progress window for long work. It lets the screen repaint between rows; in a
// process without a screen (headless commands) it shows nothing.
class TProgressForm final
{
public:
    static void Exibir(const QString &texto, int maximo = 0);
    static void Avancar(int posicao);
    static void Fechar();
    static bool Visivel();
    static int Posicao();

private:
    static QWidget *janela();
};
