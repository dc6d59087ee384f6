#include "TProgresso.h"

namespace {

// Without a screen there is no window to show.
class TProgressoNenhum final : public TProgresso
{
public:
    void Exibir(const QString &, int) override {}
    void PegarAtual(int, const QString &) override {}
    void Fechar() override {}
};

TProgresso *g_janela = nullptr;

} // namespace

TProgresso &TProgresso::Janela()
{
    static TProgressoNenhum nenhum;
    return g_janela ? *g_janela : nenhum;
}

void TProgresso::DefinirJanela(TProgresso *janela)
{
    g_janela = janela;
}

TProgresso *TProgresso::JanelaDefinida()
{
    return g_janela;
}
