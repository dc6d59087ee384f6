#pragma once

#include "Money.h"
#include "TChaveNota.h"

#include <QString>

class TConexaoSQL;

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
    // header's product total agrees to the cent.
    bool TotItensAceito(const TChaveNota &chave, int tipoCod, bool somarIPI);
    // Every staged item has packages, and units in each package (unless the type needs neither).
    bool TotDosItensAceito(const TChaveNota &chave, int tipoCod);

    // Writes `total` as the note's product total and total, through a connection of its own.
    // False when the server cannot be reached or the statement fails; nothing is shown.
    bool AjusteTotalProducao(const TChaveNota &chave, Money total);

private:
    TConexaoSQL &m_conexao;
};
