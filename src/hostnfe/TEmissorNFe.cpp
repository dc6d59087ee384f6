#include "TEmissorNFe.h"

TEmissorNFe::TEmissorNFe(TConexaoSQL &conexao)
    : m_conexao(conexao)
{
}

bool TEmissorNFe::Emitir(int, int, int, int, int, const TCertificadoA1 *, TNFeEmitida *, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("emissão ainda não disponível");
    return false;
}

bool TEmissorNFe::Montar(int, int, int, int, int, TnfeProc *, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("emissão ainda não disponível");
    return false;
}

int FinalidadeDoTipo(int tipoCod)
{
    switch (tipoCod) {
    case 35: case 38: case 41: return 4;
    case 39: return 2;
    default: return 1;
    }
}
