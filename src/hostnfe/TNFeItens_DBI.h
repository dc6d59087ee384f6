#pragma once

#include <QString>

class TConexaoSQL;
class TnfeProc;

// The det of a note's NF-e, from its staged items (station 10, in line order).
namespace TNFeItens_DBI {

struct TRegras
{
    int CRT = 3;                     // 1 and 4: ICMS by CSOSN
    int finNFe = 1;                  // a return (4) gives the IPI back in impostoDevol
    double pCBS = 0.9, pIBSUF = 0.1, pIBSMun = 0;
};

// Fills nfe.itens and ide.tpNF (0 when the items' CFOP enter, 1 when they leave) and sets
// ide.idDest to 3 for foreign CFOPs. False with one message naming the item and what to fix:
// no items, no NCM, CFOP or unit, CFOPs of both directions, a CST the company's regime lacks.
bool Carregar(TConexaoSQL &conexao, int emprCod, int compraCod, const TRegras &regras, TnfeProc &nfe,
              QString *erro);

} // namespace TNFeItens_DBI
