#pragma once

#include "TProgresso.h"

// Records where the host's progress window was left. Installed as the window while it lives.
class ProgressoTeste final : public TProgresso
{
public:
    ProgressoTeste() { TProgresso::DefinirJanela(this); }
    ~ProgressoTeste() override { TProgresso::DefinirJanela(nullptr); }

    void Exibir(const QString &, int) override { m_exibido = m_visivel = true; m_posicao = 0; }
    void PegarAtual(int atual, const QString &) override { if (atual > 0) m_posicao = atual; }
    void Fechar() override { m_visivel = false; }

    // Shown at some point and closed since, so that a window never shown does not pass.
    bool Fechado() const { return m_exibido && !m_visivel; }
    int Posicao() const { return m_posicao; }

private:
    bool m_exibido = false;
    bool m_visivel = false;
    int m_posicao = 0;
};
