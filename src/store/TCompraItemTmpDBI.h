#pragma once

#include <QString>
#include <QVariant>

#include <array>
#include <span>
#include <vector>

class TClientDataSet;
class TConexaoSQL;

// How a staging column is read from the item list and spliced into SQL.
enum class TTipoColunaItem {
    Codigo,       // integer; a null code stays NULL (CST 0 and "no CST" differ)
    Valor,        // money, rates: exact fixed point; null is written as 0, the column default
    Quantidade,   // double
    Texto,        // a null text stays NULL
};

// One column of compra_item_tmp and the item-list field that holds it. Most list fields carry
// the column's own name; the tax group keeps the names the item screen uses (icms_perc holds
// trib_icms_picms, cst holds trib_icms_cst, ...). One list field per column, so that a value
// edited on the screen is the value written.
struct TColunaItemTmp
{
    const char *coluna;    // in compra_item_tmp
    const char *campo;     // in the item list
    TTipoColunaItem tipo;
    int tamanho = 0;       // characters of a text column
};

// Every column of compra_item_tmp, in table order. The item query, the item list, the copy
// from the query and the writer all follow this one table.
std::span<const TColunaItemTmp> ColunasItemTmp();
constexpr int NumColunasItemTmp = 60;

// The values of one staging row, by column (index into ColunasItemTmp()).
class TCompraItemTmpCampos final
{
public:
    TCompraItemTmpCampos();

    // -1 when the table has no such column (case-insensitive).
    static int IndiceColuna(const QString &coluna);

    const QVariant &Valor(int indice) const { return m_valores[size_t(indice)]; }
    void SetValor(int indice, const QVariant &valor) { m_valores[size_t(indice)] = valor; }
    // By column name; std::invalid_argument for a name the table does not have.
    QVariant Valor(const QString &coluna) const;
    void SetValor(const QString &coluna, const QVariant &valor);

    // The first column whose value the table cannot hold (an amount or quantity beyond
    // NUMERIC(18,4), a text longer than the column); empty when every value fits.
    QString ColunaQueNaoCabe() const;
    // Every value as SQL text, in table order, through the value functions.
    QStringList ValoresSQL() const;

private:
    std::array<QVariant, NumColunasItemTmp> m_valores;
};

// The staging-row writer: one item-list row into one compra_item_tmp row.
class TCompraItemTmpDBI final
{
public:
    // A new compra_item_tmp_cod from compra_item_tmp_g; 0 when the database fails.
    static int ProximoGenerator();                          // the host connection
    static int ProximoGenerator(TConexaoSQL &conexao);

    // Copies the current row of the list. A field the dataset lacks reads as null, so any
    // dataset holding some of the item columns can be written.
    void LerDoDataSet(const TClientDataSet &ds);
    // The note the row belongs to, whatever the row itself holds.
    void SetNota(int emprCod, int compraCod);

    // The insert statement: every column, station 10.
    QString SqlInserir() const;
    // false with the driver's text in the connection's UltimoErro().
    bool InserirNoBD(TConexaoSQL &conexao) const;

    const TCompraItemTmpCampos &Campos() const { return m_campos; }
    TCompraItemTmpCampos &Campos() { return m_campos; }
    int CompraItemTmpCod() const;
    QString InfoAdic() const;

private:
    TCompraItemTmpCampos m_campos;
    // Field index of each column in the last dataset read (-1: absent), looked up once per
    // dataset instead of once per row.
    const TClientDataSet *m_dsIndices = nullptr;
    int m_dsCampos = -1;
    std::vector<int> m_indices;
};
