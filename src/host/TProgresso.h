#pragma once

#include <QString>

// Where long work reports how far it got: the screen's progress panel, the host's progress
// window, or nothing.
class TProgresso
{
public:
    virtual ~TProgresso() = default;
    // Shows `texto`; a maximum of 1 or more shows a gauge from 0.
    virtual void Exibir(const QString &texto, int maximo) = 0;
    // Moves the gauge to `atual` when above 0; a non-empty text replaces the label.
    virtual void PegarAtual(int atual, const QString &texto = QString()) = 0;
    virtual void Fechar() = 0;

    // The host's progress window: the one installed, else one that shows nothing.
    static TProgresso &Janela();
    // Not owned; nullptr restores the one that shows nothing.
    static void DefinirJanela(TProgresso *janela);
    // The one set by DefinirJanela, or nullptr.
    static TProgresso *JanelaDefinida();
};
