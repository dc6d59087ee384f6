#pragma once

// The host's stock routines: the movements that posting a note writes, their tax fields, taking
// them back, and entering a posted note in the stock of its destination company.
// Every routine throws EErroBanco (ErroBanco.h) naming the statement that failed; what was
// written before it stays, since each statement commits as it runs.

#include "Money.h"

#include <QChar>
#include <QList>
#include <QString>

class TConexaoSQL;

namespace Estoque {

// The direction of a movement, in est_mov.tipo. Entries keep their quantity, exits store it
// negated, so that the balance is the plain sum of qtd over both.
constexpr QChar Entrada = QLatin1Char('E');
constexpr QChar Saida = QLatin1Char('S');
// A complementary note corrects values of goods already moved: it is recorded with its
// quantity as given, but moves nothing, so the balance leaves it out.
constexpr QChar SemMercadoria = QLatin1Char('C');

// By document type: purchase entries (34), production (37) and returns of leased or lent goods
// (38, 41) bring goods in; returns to suppliers (35) and simple shipments (36) take them out;
// a complementary note (39) moves none. Any other code is read as an entry, as an empty type
// is a purchase entry.
QChar DirecaoDoTipoDoc(int tipoCod);

// Movements are written under this station whatever workstation posts the note.
constexpr int EstacaoMov = 10;

} // namespace Estoque

// The NF-e tax group of an item as staged; est_mov keeps it under the same column names.
struct TEstMovTrib
{
    int icmsCst = 0;
    int orig = 0;
    int modBC = 0;
    int modBCST = 0;
    Money pICMS, vICMS, vBC, pMVAST, pRedBCST, pRedBC, pICMSST, vBCST, vICMSST, pIPI, vIPI,
        outras, frete, seguro, vBCFCP, pFCP, vFCP, vBCFCPST, pFCPST, vFCPST, vBCSTRet, pST,
        vICMSSubstituto, vICMSSTRet;
    int cstPis = 0;
    Money pPis, vPis;
    int cstCofins = 0;
    Money pCofins, vCofins;

    struct ColunaInt
    {
        const char *coluna;
        int TEstMovTrib::*campo;
    };
    struct ColunaMoney
    {
        const char *coluna;
        Money TEstMovTrib::*campo;
    };
    // The columns in the order the routines receive them (the four codes, the 24 values, then
    // the PIS and COFINS group), lower case.
    static const QList<ColunaInt> &ColunasInt();
    static const QList<ColunaMoney> &ColunasMoney();
};

// What the stock routine needs of the note, known to the caller and built once for all items.
struct TNotaEstMov
{
    int emprCod = 0;
    int estacaoCod = 0;     // the note's own station, which the link carries
    int compraCod = 0;
    int tipoCod = 34;       // the document type number, for the direction
};

// Writes the movement of one posted item and its link to the note in one statement, so that no
// movement exists without its link; answers the new est_mov_cod (from est_mov_g). `direcao` is
// Estoque::Entrada or Saida to force a direction; a blank takes it from the note's type. The
// product's kind is recorded with it.
int CompraEstMovInsNovo(TConexaoSQL &conexao, const TNotaEstMov &nota, int prodCod, double qtd, Money custo,
                        Money custoTot, Money preco, Money desconto, QChar direcao, const QString &cfop,
                        const TEstMovTrib &trib);

// Fills the host's own tax columns of a movement (treatment, origin, bases, rates, values, the
// product's tax situation) from the NF-e group it was written with; `vICMS` is its own ICMS.
void EstMovAjusteTrib(TConexaoSQL &conexao, int emprCod, int estacaoCod, int estMovCod, Money vICMS);

// Takes a note back out of stock on the database named: its movements, their inputs, their
// links, and the entries that sending made in the destination company; then baixado='N'.
// A failure part-way can simply be repeated: each step finds what is left through the links.
void DesbaixarCompra(int emprCod, int compraCod, const QString &database);

// Enters the posted items of a note as entries in the stock of `destinEmprCod` on the database
// named, linked in compra_est_mov_env to the note and to the movement each copies. Sending again
// replaces the earlier entries. Answers how many were entered.
int Quenor_EstMov_EnvCompra(int emprCod, int compraCod, int destinEmprCod, const QString &database);
