#pragma once

#include <QString>

class TClientDataSet;
class TTabPrecoList;

// The columns of the item list: the grid's columns in order, then the staging columns the grid
// does not show (hidden, so that a loaded row is written back whole), then one sale-price
// column per price table.
class TClientManager2_CreateFields final
{
public:
    static void Executar(TClientDataSet &itens);
    // Adds "preco<code>" for each table the list does not have yet; the dataset must be closed.
    static void AdicionarPrecos(TClientDataSet &itens, const TTabPrecoList &tabelas);
    static QString CampoPreco(int tabPrecoCod) { return QStringLiteral("preco%1").arg(tabPrecoCod); }
};
