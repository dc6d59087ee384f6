#pragma once

#include "Money.h"

#include <QString>

class TClientDataSet;
class TConexaoSQL;

// The key of a note: company, the station the note was created on, note code.
struct TChaveNota
{
    int emprCod = 0;
    int estacaoCod = 0;
    int compraCod = 0;
};

// The checks that run before a note is posted. Each refusal shows exactly one message and
// answers false; nothing is written by a refused gate except a production note's total.
// Staged items are read under station 10; the note header under its own station.
class TRepGates final
{
public:
    // `conexao`: the module's connection, for the reads.
    explicit TRepGates(TConexaoSQL &conexao) : m_conexao(conexao) {}

    // The items' sums against the header: there are items, the total is not zero (except where
    // the type allows it), a production note gets the items' total as its header total, and the
    // header's product total agrees to the cent. `notas`: the note list whose current row is the
    // note, updated with a production note's new total; may be null.
    bool TotItensAceito(const TChaveNota &chave, int tipoCod, bool somarIPI, TClientDataSet *notas);
    // Every staged item has packages, and units in each package (unless the type needs neither).
    bool TotDosItensAceito(const TChaveNota &chave, int tipoCod);

    // Writes `total` as the note's product total and total, through a connection of its own, and
    // puts it into TOT_PRODS and TOT of the current row of `notas` (may be null). False when the
    // server cannot be reached or the statement fails; nothing is shown.
    bool AjusteTotalProducao(const TChaveNota &chave, Money total, TClientDataSet *notas);

private:
    TConexaoSQL &m_conexao;
};
