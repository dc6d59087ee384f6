#pragma once

#include "Money.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

class TConexaoSQL;

// What item entry writes back to the product, and its deletes and look-ups.
class TItemNotaDBI final
{
public:
    // Packaging, tax situation and IPI (and the NCM when given) of a product.
    static QString SqlGravarProd(int prodCod, double embQtd, int tribCod, Money ipi, const QString &ncm);
    static QString SqlGravarMargem(int prodCod, int emprCod, Money margem);
    static QString SqlGravarNCM(int prodCod, const QString &ncm);
    // The staged row, then its prices.
    static QStringList SqlExcluirItem(int emprCod, int compraItemTmpCod, int estacaoCod);
    static QString SqlGradesDoProd(int prodCod);

    // The grade titles a product has; nothing when the read fails.
    static std::optional<QSet<int>> GradesDoProd(TConexaoSQL &conexao, int prodCod);
};
