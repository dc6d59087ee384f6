#pragma once

class TProdCompoList;
class TStringGrid;

// The input lists as the two inputs screens show them (and the console prints them): the title
// row, then one row per line; quantities as "####0.###" followed by the unit, no space between.
class TProdCompoList_UI final
{
public:
    // "Código", "Descrição", "Qtd.Unit", "Qtd.Tot": the quantity per unit and round3 of it times
    // the item's quantity.
    static void PreencherStringGridItem(TStringGrid &grade, const TProdCompoList &lista, double qtdItem);
    // "Código", "Descrição", "Qtd".
    static void PreencherStringGridNota(TStringGrid &grade, const TProdCompoList &lista);
};
