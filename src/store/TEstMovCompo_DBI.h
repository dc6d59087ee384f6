#pragma once

class TConexaoSQL;

// The inputs a posted movement consumes, in est_mov_compo.
class TEstMovCompo_DBI final
{
public:
    // One row per input of `prodCod`'s composition, each with a code from est_mov_compo_g and
    // the input's quantity per unit times |qtd|, rounded to 3 decimals: a negative item quantity
    // still consumes. Nothing for a product without composition. Answers the rows written;
    // throws EErroBanco when the composition cannot be read or a row cannot be written.
    static int Gravar(int emprCod, int estMovCod, int prodCod, double qtd, TConexaoSQL &conexao);
};
