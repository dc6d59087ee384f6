#include "TImpressoraNFe.h"

namespace {
TImpressoraNFe *g_impressora = nullptr;
}

TImpressoraNFe *TImpressoraNFe::Atual()
{
    return g_impressora;
}

void TImpressoraNFe::Definir(TImpressoraNFe *impressora)
{
    g_impressora = impressora;
}
