#pragma once

#include "UProdCompoList.h"

#include <unordered_map>

class TConexaoSQL;

// The inputs a posted movement consumes, in est_mov_compo. One writer serves a whole posting:
// each product's composition is read once, on its first movement, and kept for the others.
class TEstMovCompo_DBI final
{
public:
    explicit TEstMovCompo_DBI(TConexaoSQL &conexao) : m_conexao(conexao) {}

    // One row per input of `prodCod`'s composition, each with a code from est_mov_compo_g and
    // the input's quantity per unit times |qtd|, rounded to 3 decimals: a negative item quantity
    // still consumes. Nothing for a product without composition. Answers the rows written;
    // throws EErroBanco when the composition, a code or a row cannot be read or written.
    int Gravar(int emprCod, int estMovCod, int prodCod, double qtd);
    // The product's composition, read on the first call; throws EErroBanco when it cannot be read.
    const TProdCompoList &Composicao(int prodCod);

private:
    TConexaoSQL &m_conexao;
    std::unordered_map<int, TProdCompoList> m_composicoes;
};
