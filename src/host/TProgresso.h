#pragma once

#include <QString>

// Where long work reports how far it got: the screen's progress panel, or nothing.
class TProgresso
{
public:
    virtual ~TProgresso() = default;
    // Shows `texto`; a maximum of 1 or more shows a gauge from 0.
    virtual void Exibir(const QString &texto, int maximo) = 0;
    // Moves the gauge to `atual` when above 0; a non-empty text replaces the label.
    virtual void PegarAtual(int atual, const QString &texto = QString()) = 0;
    virtual void Fechar() = 0;
};
