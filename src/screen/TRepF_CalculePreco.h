#pragma once

#include "Money.h"

#include <QList>
#include <QString>

#include <optional>

class TConexaoSQL;
class TTabPrecoList;

// How an entry note's ICMS or IPI value enters the item's cost: config value "1" adds it, "2"
// deducts it, anything else leaves the cost alone.
enum class TModoCustoImposto { Nenhum, Soma, Deduz };

// What the sale price calculation reads from the item panel and the screen's settings.
struct TCalculePrecoEntrada
{
    Money margem;               // MargemNumEditBR, %
    Money custoTot;             // CustoTotItemNumEditBR, total cost of the packages
    Money desconto;             // DescontoItemNumEditBR
    double qtdComprada = 0.0;   // QtdCompradaNumEditBR
    Money vICMS;                // vICMSNumEditBR
    Money vIPI;                 // vIPINumEditBR
    Money vBCST;                // vBCSTNumEditBR, the ICMS ST base value ("BC ST R$")
    Money outras;               // OutrasItemNumEditBR
    int tipoIndice = 0;         // the type's position in the type combo (0 ENTRADA, 3 PRODUCAO, ...)
    bool producCustoExige = true;   // REP_PRODUC_CUSTO_EXIGE
    bool ipiSomar = true;           // REP_IPI_SOMAR
    // ENTRADA only; Calcule fills them from the database.
    TModoCustoImposto modoIcms = TModoCustoImposto::Nenhum;
    TModoCustoImposto modoIpi = TModoCustoImposto::Nenhum;
    QList<Money> percTabelas;   // perc of every price table after the first, in table order
    bool custoUnitComFoco = false;  // CustoNumEditBR has the input focus
    bool gravarCusto = false;       // the cost write-back flag
};

// What the screen writes back. Empty optionals leave their field as it is.
struct TCalculePrecoSaida
{
    bool calculado = false;             // false: write nothing at all
    std::optional<Money> custoTot;      // new CustoTotItemNumEditBR
    std::optional<Money> custoUnit;     // new CustoNumEditBR
    Money preco;                        // PrecoNumEditBR
    QList<Money> precosTabelas;         // one per entry of percTabelas, same order
};

// CUSTO and CUSTO_unit of an item row.
struct TCustoItem
{
    Money custo;                        // total cost less the discount
    std::optional<Money> custoUnit;     // empty: leave the column as it was
};

// The item's net cost, unit cost and sale prices, derived from what is typed in the item panel.
//
// How the screen uses it. The screen keeps a recalculation switch, normally on. Every event below
// first returns when the switch is off; otherwise it fills TCalculePrecoEntrada from the panel
// (custoUnitComFoco = CustoNumEditBR->hasFocus(), gravarCusto from the table), calls Calcule and,
// when the result is `calculado`, writes custoTot, custoUnit (when present), PrecoNumEditBR and the
// further price edits with the switch turned off, so that the change signals of those fields do
// not start the calculation again; then it turns the switch back on.
//   gravarCusto true:  PreencherProd (product chosen), CamposParaControlesNotaItem (item loaded
//                      for editing), change of QtdCompradaNumEditBR.
//   gravarCusto false: change of CustoTotItemNumEditBR, DescontoItemNumEditBR, CustoNumEditBR,
//                      MargemNumEditBR (and key release in it), vICMSNumEditBR, vIPINumEditBR,
//                      OutrasItemNumEditBR; closing the tax-situation list.
class TRepF_CalculePreco final
{
public:
    // The calculation itself, with the ENTRADA modes as given.
    static TCalculePrecoSaida Calcular(const TCalculePrecoEntrada &entrada);
    // As Calcular, reading the two ENTRADA modes afresh from `conexao` (the host connection) when
    // the note is an ENTRADA; other types send nothing.
    static TCalculePrecoSaida Calcule(TCalculePrecoEntrada entrada, TConexaoSQL &conexao);

    struct TModos
    {
        TModoCustoImposto icms = TModoCustoImposto::Nenhum;
        TModoCustoImposto ipi = TModoCustoImposto::Nenhum;
    };
    // EST_CUS_ICMS_MODO and EST_CUS_IPI_MODO in one attachment; both Nenhum when the database
    // cannot be reached.
    static TModos LerModosEntrada(TConexaoSQL &conexao);
    static TModoCustoImposto ModoDoValor(const QString &valor);   // trimmed "1" / "2"

    // The perc of every table after the first, in code order, for percTabelas.
    static QList<Money> PercTabelasSeguintes(const TTabPrecoList &tabelas);

    // QtdCompradaNumEditBR from the package quantity and the package count: the product cut (not
    // rounded) to 4 decimals, 1,115 x 1,111 = 1,2387.
    static double CalculeQtd(double embQtd, double qtdEmbs);
    // CUSTO = total cost - discount; CUSTO_unit = CUSTO / bought quantity taken at 4 decimals,
    // only when that quantity is not zero.
    static TCustoItem CalculeCusto(Money custoTot, Money desconto, double qtdComprada);
};
