#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

class TClientDataSet;
class TField;
class TQ;

// Binds the item query's columns to the item list's fields by name, once per query: every
// staging column to the field that holds it, and the product's description, unit, margin,
// current cost and current price of table 1. A column the query lacks is left out.
class TPegarQueryCampos final
{
public:
    struct Ligacao
    {
        int coluna;       // in the query
        TField *campo;    // in the list
    };
    static std::vector<Ligacao> PegarQueryCampos(const TQ &q, TClientDataSet &itens);
};

// Appends item-list rows from the rows of the item query.
class TQueryToClient final
{
public:
    // tribSL: the tax situations as TPreencheTribSL gives them.
    TQueryToClient(const TQ &q, TClientDataSet &itens, const QStringList &tribSL);

    // Appends a row from the query's current row: the bound columns, trib_str, and the bought
    // quantity and net costs the item screen would have computed. The row is left in Insert
    // state so that the caller can add its prices before posting it.
    void QueryToClient();

private:
    const TQ &m_q;
    TClientDataSet &m_itens;
    std::vector<TPegarQueryCampos::Ligacao> m_ligacoes;
    QHash<int, QString> m_tribs;
    TField *m_tribCod;
    TField *m_tribStr;
    TField *m_embQtd;
    TField *m_qtdEmbs;
    TField *m_qtdComprada;
    TField *m_custoTot;
    TField *m_desconto;
    TField *m_custo;
    TField *m_custoUnit;
};
