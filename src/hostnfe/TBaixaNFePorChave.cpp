#include "TBaixaNFePorChave.h"

namespace {
TBaixaNFePorChave *g_baixa = nullptr;
}

TBaixaNFePorChave *TBaixaNFePorChave::Atual()
{
    return g_baixa;
}

void TBaixaNFePorChave::Definir(TBaixaNFePorChave *baixa)
{
    g_baixa = baixa;
}
