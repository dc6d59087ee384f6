#pragma once

#include "Money.h"

#include <QDate>
#include <QString>

#include <optional>

class TConexaoSQL;

// The host's product look-ups used while an item is typed. Each sends one statement on the
// connection it is given; a failed statement reads as "nothing found", with the driver's text
// left in the connection's UltimoErro().

// The product a supplier's own code stands for: the code is trimmed and, when it is all digits,
// its leading zeros are dropped (StrToIntStr), so "007" finds "7". A code registered for that
// supplier wins over one registered for every supplier (fornec_cod 0). 0 when none; an empty
// code sends nothing.
int FornecProdCod(TConexaoSQL &conexao, int fornecCod, const QString &prodCodDeles);

// A product of the system as the import of a supplier's items shows it; prodCod 0 when none.
struct TProdDescr
{
    int prodCod = 0;
    QString descr;
    int fabrCod = 0;
    QString fabrNome;
    int unidCod = 0;
    QString unidSigla;
};

// The product a supplier's code stands for, with its maker and unit; the code is read as
// FornecProdCod reads it. One statement; nothing found gives prodCod 0, a failed statement
// nullopt (the driver's text in the connection's UltimoErro()).
std::optional<TProdDescr> FornecCToProdDescr(TConexaoSQL &conexao, int fornecCod, const QString &prodCodDeles);
// The product of a bar code (an extra bar code first, else the GTIN), with its maker and unit.
// Only an all-digit code is looked up ("SEM GTIN" finds nothing).
std::optional<TProdDescr> BarCodToProdDescr(TConexaoSQL &conexao, const QString &barCod);

// Units in one package of the product, as registered; 0 when the product or the value is missing,
// so that the package check asks for it.
double ProdCodToEmbQtd(TConexaoSQL &conexao, int prodCod);

// The product's kind as the character code of prod_tipo_cod (37 for '%', a composition); 0 when
// the product has no kind, does not exist or cannot be read.
int ProdCodToTipo(TConexaoSQL &conexao, int prodCod);
constexpr int ProdTipoComposicao = '%';

// The product's current sale price in price table 1 for the company; 0 when it has none.
Money PrecoProd(TConexaoSQL &conexao, int prodCod, int emprCod);

class TProdPromo_PrecoPromoDBI final
{
public:
    // The promotion price of the product valid on `dia` (dt_ini <= dia <= dt_fim, an open end
    // when dt_fim is empty); of overlapping promotions, the one that started last. 0 when none.
    static Money GetPrecoPromo(TConexaoSQL &conexao, int prodCod, int emprCod, const QDate &dia);
};
