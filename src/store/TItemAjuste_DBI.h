#pragma once

#include <QString>

class TConexaoSQL;

// The fiscal coding of an item as the operator corrected it.
struct TItemAjuste
{
    int compraItemTmpCod = 0;
    int prodCod = 0;
    int cfop = 0;
    int cst = 0;
    double pRedBCST = 0;
    double pRedBC = 0;
    QString infoAdic;
    QString ncm;
};

// Writes a corrected item where it lives: the staged item, the product master and the stock
// movements that posting created for that product in the note. Each statement commits as it
// runs; callers keep one connection across the three. A failing one throws EErroBanco naming what failed, leaving the earlier ones applied.
class TItemAjuste_DBI final
{
public:
    explicit TItemAjuste_DBI(TConexaoSQL &conexao) : m_conexao(conexao) {}

    void GravarItemTmp(const TItemAjuste &item);
    void GravarProd(const TItemAjuste &item);
    // Every movement of the product under the note; none for a note never posted.
    void GravarEstMov(const TItemAjuste &item, int emprCod, int compraCod);

private:
    TConexaoSQL &m_conexao;
};
