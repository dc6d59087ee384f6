#pragma once

#include "Money.h"

#include <QList>
#include <QString>

class TConexaoSQL;

struct TTabPreco
{
    int codigo = 0;
    QString nome;       // trimmed
    Money perc;         // percentage over the first table's price
};

// The price tables, in code order.
class TTabPrecoList final
{
public:
    // "select * from tab_preco order by tab_preco_cod"; false with the driver's text on failure.
    bool CarregarDoDB(TConexaoSQL &conexao, QString *erro);

    const QList<TTabPreco> &Tabelas() const { return m_tabelas; }
    int Count() const { return int(m_tabelas.size()); }

private:
    QList<TTabPreco> m_tabelas;
};
