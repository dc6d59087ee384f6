#pragma once

#include "Money.h"
#include "TChaveNota.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class TConexaoSQL;

// One staged line of a note as its price labels need it.
struct TEtiquetaItem
{
    int prodCod = 0;
    QString descr;
    QString gtin;
    QStringList barras;             // the product's further bar codes, in code order
    double qtd = 0;                 // packages times units per package
    std::optional<Money> preco;     // in the first price table; none when the product has no price there
};

namespace TEtiquetas_DBI {

// The note's staged lines in their order, with the company's prices; nullopt when a statement
// fails, with the driver's text in the connection.
std::optional<QList<TEtiquetaItem>> LerItens(TConexaoSQL &conexao, const TChaveNota &nota);

} // namespace TEtiquetas_DBI
