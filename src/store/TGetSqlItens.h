#pragma once

#include <QString>

// The item query of a note: every compra_item_tmp column plus what the list shows beside them.
// Inner joins: an item whose product has no prod_compl row for the company, or no general cost
// (fornec_cod null or 0), is not loaded.
class TGetSqlItens final
{
public:
    static QString GetSqlItens(int emprCod, int compraCod);
};
