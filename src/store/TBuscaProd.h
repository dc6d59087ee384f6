#pragma once

#include "Money.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

class TConexaoSQL;
class TQ;

// A product found by the item panel's search.
struct TProdAchado
{
    int codigo = 0;
    QString descr;      // trimmed
    QString ncm;        // empty when found by GTIN (that look-up does not read it)
};

// The product master data that fills the item panel.
struct TProdDados
{
    int codigo = 0;
    QString descr;      // trimmed
    int unidCod = 0;
    double embQtd = 0.0;
    int tribCod = 0;
    Money ipi;          // IPI rate, %
    Money custoAtual;   // the company's current cost; 0 when none
    Money margem;       // sale margin, %
    int nItensGrade = 0;
    QString ncm;
};

// One entry of a grade combo: the code kept, the text shown.
struct TGradeItem
{
    int codigo = 0;
    QString descr;
};

// The product look-ups of item entry, on one connection and for one company.
// Every text is spliced quoted and every code as an integer, so a text holding quotes finds
// nothing and breaks nothing. A failed statement reads as "not found"; Erro() then tells it apart.
class TBuscaProd final
{
public:
    static constexpr int ModoConexaoNOrig = 3;

    TBuscaProd(TConexaoSQL &conexao, int emprCod) : m_conexao(conexao), m_emprCod(emprCod) {}

    // The host connection's mode; only mode 3 also searches the registered alternative codes.
    void SetModoConexao(int modo) { m_modoConexao = modo; }
    int ModoConexao() const { return m_modoConexao; }

    // The search of the item panel, in this order, the first hit winning: product code (only an
    // all-digit text shorter than 8, so bar codes are never taken for codes), bar code, GTIN,
    // and in mode 3 the alternative codes. An empty text finds nothing and sends nothing.
    std::optional<TProdAchado> Buscar(const QString &texto);

    // The master data for the panel; nothing when the product has no complement for the company.
    std::optional<TProdDados> PreencherProd(int prodCod);

    // Entries of the combo of a grade title: first the entry for no variant (item code 0, shown
    // as "UNICO" when it has no description), then the title's items by description.
    QList<TGradeItem> ItensGrade(int gradeTitCod);

    // The drop-down list shown while a product is typed: the company's active products with their
    // maker (columns DESCR, PROD_FABR_NOME, PROD_COD).
    std::unique_ptr<TQ> ListaProd();

    static QString SqlListaProd(int emprCod);
    static QString SqlPreencherProd(int emprCod, int prodCod);
    static QString SqlGradeItens(int gradeTitCod);
    static QString SqlGradeSemVariante(int gradeTitCod);

    // The driver's text of the last failed statement of this object; empty when all went well.
    QString Erro() const { return m_erro; }

private:
    std::optional<TProdAchado> BuscarProdCod(const QString &texto);
    // Bar code, then (only when no bar code row exists) GTIN; the text is trimmed.
    std::optional<TProdAchado> BuscarBarCode(const QString &texto);
    std::optional<TProdAchado> BuscarNOrig(const QString &texto);
    std::unique_ptr<TQ> Abrir(const QString &sql);
    std::optional<TProdAchado> PorCodigo(const QString &codigo);

    TConexaoSQL &m_conexao;
    int m_emprCod;
    int m_modoConexao = 0;
    QString m_erro;
};
