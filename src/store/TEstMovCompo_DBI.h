#pragma once

#include <QHash>
#include <QList>
#include <QPair>

class TConexaoSQL;
struct TChaveNota;

// The inputs a posted movement consumes, in est_mov_compo.
class TEstMovCompo_DBI final
{
public:
    // Per product, its inputs in the composition's order: input product and quantity per unit,
    // rounded to 3 decimals.
    using TComposicoes = QHash<int, QList<QPair<int, double>>>;

    // The compositions of every product staged on the note, read once for the whole posting;
    // throws EErroBanco when they cannot be read.
    static TComposicoes CarregarDaNota(TConexaoSQL &conexao, const TChaveNota &nota);

    // One row per input of `prodCod`'s composition, each with a code from est_mov_compo_g and
    // the input's quantity per unit times |qtd|, rounded to 3 decimals: a negative item quantity
    // still consumes. Nothing for a product without composition. Answers the rows written;
    // throws EErroBanco when a code or a row cannot be written.
    static int Gravar(int emprCod, int estMovCod, int prodCod, double qtd, TConexaoSQL &conexao,
                      const TComposicoes &composicoes);
};
