#include "RegistroSql.h"
#include "TBuscaProd.h"
#include "TestDatabase.h"
#include "UProdConsulta.h"

#include <gtest/gtest.h>


namespace {

class BuscaProdDB : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }

    void Exec(const char *script) { ASSERT_EQ(db.execScript(QString::fromUtf8(script)), QString()); }

    TestDatabase db;
};

TEST_F(BuscaProdDB, FindsInTheDocumentedOrderWithTheseStatements)
{
    // Bar codes made of digits that, taken as a product code, would name another product.
    for (const char *barras : {"0000001", "00000001"})
        Exec(("insert into prod_barras (bar_cod, prod_cod) values ('" + std::string(barras) + "', 3)").c_str());
    const struct { const char *nome, *texto; int modo; const char *achado; } casos[] = {
        {"seven digits are a code", "0000001", 0, "1 11010010 PRODUTO UM"},
        {"eight digits never a code", "00000001", 0, "3 19059090 PRODUTO TRES COMPOSTO"},
        {"bar code trimmed", " 17890000000021 ", 0, "2 22021000 PRODUTO DOIS"},
        {"gtin not among bar codes has no ncm", "7890000000024", 0, "2  PRODUTO DOIS"},
        {"unknown code", "9999", 0, ""}, {"quote finds nothing", "7890'000000024", 3, ""}, {"blank finds nothing", "   ", 3, ""},
        {"supplier code outside mode 3", "ABC-001", 0, ""},
        {"supplier code in mode 3", "ABC-001", 3, "1 11010010 PRODUTO UM"},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nome);
        TBuscaProd busca(db.conexao(), 1);
        busca.SetModoConexao(c.modo);
        const auto achado = busca.Buscar(QString::fromUtf8(c.texto));
        EXPECT_EQ(busca.Erro(), QString());
        EXPECT_EQ(achado ? QStringLiteral("%1 %2 %3").arg(achado->codigo).arg(achado->ncm, achado->descr) : QString(), QLatin1String(c.achado));
    }

    SCOPED_TRACE("the statements as sent");
    TBuscaProd busca(db.conexao(), 1);
    busca.SetModoConexao(TBuscaProd::ModoConexaoNOrig);
    RegistroSql registro;
    EXPECT_FALSE(busca.Buscar(QStringLiteral("O'Neil")));
    EXPECT_EQ(RegistroSql::Sql(), (QStringList{
        QStringLiteral("select first(1) prod_cod from prod_barras where bar_cod='O''Neil'"),
        QStringLiteral("select first(1) prod.prod_cod, prod.descr from prod where prod.gtin='O''Neil'"),
        QStringLiteral("select first(1) prod_cod from prod_NOrig where norig='O''Neil'"),
    }));
    RegistroSql::Limpar();
    ASSERT_TRUE(busca.Buscar(QStringLiteral("17890000000021")));
    EXPECT_EQ(RegistroSql::Sql(), (QStringList{
        QStringLiteral("select first(1) prod_cod from prod_barras where bar_cod='17890000000021'"),
        QStringLiteral("select first(1) prod.prod_cod, prod.descr, prod.ncm from prod where prod.prod_cod=2"),
    }));
}

TEST_F(BuscaProdDB, PreencherProdGradeCombosAndTheListReadTheCompanysData)
{
    // Company 2 sells product 2 too, with its own margin and cost.
    Exec("insert into grade_tit (grade_tit_cod, descr) values (1, 'TAMANHO');\n"
         "insert into grade_tit (grade_tit_cod, descr) values (2, 'COR');\n"
         "insert into prod_grade (prod_cod, grade_tit_cod) values (2, 1);\n"
         "insert into prod_grade (prod_cod, grade_tit_cod) values (2, 2);\n"
         "insert into prod_compl (prod_cod, empr_cod, margem, ativo) values (2, 2, 45.5, 'S');\n"
         "insert into prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo) values (2, 2, 0, 7.1234);\n");
    const auto Descrever = [](const TProdDados &d) {
        return QStringLiteral("%1 %2 unid %3 emb %4 trib %5 ipi %6 custo %7 margem %8 grade %9 ncm %10")
            .arg(d.codigo).arg(d.descr).arg(d.unidCod).arg(d.embQtd).arg(d.tribCod)
            .arg(d.ipi.toString(), d.custoAtual.toString(), d.margem.toString()).arg(d.nItensGrade).arg(d.ncm).toStdString();
    };
    TBuscaProd busca(db.conexao(), 1);
    RegistroSql registro;
    const auto d = busca.PreencherProd(2);
    EXPECT_EQ(RegistroSql::Sql(), QStringList{QStringLiteral(
        "select first(1) prod.prod_cod, prod.descr, prod.unid_cod, prod.emb_qtd, prod.trib_cod, prod.ipi, "
        "( select first(1) custo from prod_custo_atual where prod_custo_atual.prod_cod=prod.prod_cod and empr_cod=1 ) as custo_atual, "
        "prod_compl.margem, (select count(prod_cod) from prod_grade where prod_grade.prod_cod=prod.prod_cod) as NItensGrade, "
        "prod.ncm as prod_ncm from prod join prod_compl on prod.prod_cod=prod_compl.prod_cod and prod_compl.empr_cod=1 "
        "where prod.prod_cod=2")});
    EXPECT_EQ(d ? Descrever(*d) : busca.Erro().toStdString(), "2 PRODUTO DOIS unid 2 emb 12 trib 3 ipi 5 custo 4.5 margem 30 grade 2 ncm 22021000");
    TBuscaProd outra(db.conexao(), 2);
    const auto d2 = outra.PreencherProd(2);
    EXPECT_EQ(d2 ? Descrever(*d2) : outra.Erro().toStdString(), "2 PRODUTO DOIS unid 2 emb 12 trib 3 ipi 5 custo 7.1234 margem 45.5 grade 2 ncm 22021000");
    // Without the company's complement the product is not the company's.
    EXPECT_FALSE(outra.PreencherProd(1));
    EXPECT_EQ(outra.Erro(), QString());

    for (const char *item : {"(1, 0, NULL)", "(1, 1, 'P')", "(1, 2, 'M')", "(1, 3, 'G')",
                             "(2, 0, 'SEM COR')", "(2, 5, 'AZUL')", "(2, 4, 'VERMELHO')", "(4, 1, 'OUTRO')"})
        Exec((QByteArray("insert into grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) values ") + item).constData());
    const auto texto = [&](int titulo) {
        QStringList l;
        for (const TGradeItem &i : busca.ItensGrade(titulo))
            l << QStringLiteral("%1 %2").arg(i.codigo).arg(i.descr);
        return l.join(QLatin1Char('|'));
    };
    EXPECT_EQ(texto(1), QStringLiteral("0 UNICO|3 G|2 M|1 P"));
    EXPECT_EQ(texto(2), QStringLiteral("0 SEM COR|5 AZUL|4 VERMELHO"));
    EXPECT_EQ(texto(3), QStringLiteral("0 UNICO"));
    EXPECT_EQ(busca.Erro(), QString());

    SCOPED_TRACE("the product list holds the company's active products");
    Exec("update prod_compl set ativo='N' where prod_cod=2 and empr_cod=1");
    const auto q = busca.ListaProd();
    ASSERT_TRUE(q) << busca.Erro().toStdString();
    QStringList linhas;
    for (q->First(); !q->Eof(); q->Next())
        linhas << q->FieldByName(QStringLiteral("PROD_COD")).AsString() + QLatin1Char(' ')
                      + q->FieldByName(QStringLiteral("PROD_FABR_NOME")).AsString();
    linhas.sort();
    EXPECT_EQ(linhas, (QStringList{"1 FABRICANTE TESTE", "3 FABRICANTE TESTE"}));
}

TEST_F(BuscaProdDB, FornecProdCodPrefersTheSuppliersOwnCodeAndPricesFollowTheirTablesAndDates)
{
    Exec("insert into prod_norig (norig, prod_cod, fornec_cod) values ('7', 2, 1);\n"
         "insert into prod_norig (norig, prod_cod, fornec_cod) values ('XYZ', 3, 0);\n"
         "insert into prod_norig (norig, prod_cod, fornec_cod) values ('DUP', 3, 0);\n"
         "insert into prod_norig (norig, prod_cod, fornec_cod) values ('DUP', 2, 1);\n"
         "insert into prod_norig (norig, prod_cod, fornec_cod) values ('78901234567890', 1, 2);\n"
         "insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco) values (1, 2, 2, 99);\n"
         "insert into prod_promo (empr_cod, prod_cod, dt_ini, dt_fim, preco_promo) values (1, 1, '2026-10-01', '2026-10-31', 9);\n"
         "insert into prod_promo (empr_cod, prod_cod, dt_ini, dt_fim, preco_promo) values (1, 1, '2026-11-01', '2026-11-30', 11.5);\n"
         "insert into prod_promo (empr_cod, prod_cod, dt_ini, dt_fim, preco_promo) values (1, 1, '2026-11-20', NULL, 8);\n");
    const struct { int fornec; const char *codigo; int prod; } casos[] = {
        {1, "ABC-001", 1}, {2, "ABC-001", 0}, {1, "  ABC-001 ", 1},
        {1, "007", 2}, {1, "7", 2}, {2, "007", 0},
        {2, "XYZ", 3}, {1, "XYZ", 3},           // registered for every supplier
        {1, "DUP", 2}, {2, "DUP", 3},           // the supplier's own row first
        {2, "0078901234567890", 1},             // beyond the integer range: leading zeros only
        {1, "ABC'001", 0}, {1, "", 0},
    };
    for (const auto &c : casos)
        EXPECT_EQ(FornecProdCod(db.conexao(), c.fornec, QString::fromUtf8(c.codigo)), c.prod) << c.fornec << " " << c.codigo;
    RegistroSql registro;
    EXPECT_EQ(FornecProdCod(db.conexao(), 1, QStringLiteral("   ")), 0);
    EXPECT_TRUE(RegistroSql::Sql().isEmpty()) << "a blank code asks nothing";

    SCOPED_TRACE("prices and package quantity");
    TConexaoSQL &conexao = db.conexao();
    // Product 2's price is table 1's, not table 2's.
    EXPECT_EQ(PrecoProd(conexao, 1, 1).toString() + ' ' + PrecoProd(conexao, 1, 2).toString() + ' ' + PrecoProd(conexao, 2, 1).toString(),
              QStringLiteral("13 0 5.85"));
    EXPECT_EQ(ProdCodToEmbQtd(conexao, 2), 12.0);
    EXPECT_EQ(ProdCodToEmbQtd(conexao, 99), 0.0);
    const struct { int prod; int empr; QDate dia; const char *preco; } promos[] = {
        // the last day included, the later start winning, an open end; another company, another product
        {1, 1, QDate(2026, 9, 30), "0"}, {1, 1, QDate(2026, 10, 31), "9"}, {1, 1, QDate(2026, 11, 1), "11.5"},
        {1, 1, QDate(2026, 11, 25), "8"}, {1, 1, QDate(2027, 6, 1), "8"}, {1, 2, QDate(2026, 11, 1), "0"}, {2, 1, QDate(2026, 11, 1), "0"},
    };
    for (const auto &c : promos)
        EXPECT_EQ(TProdPromo_PrecoPromoDBI::GetPrecoPromo(conexao, c.prod, c.empr, c.dia).toString(), QLatin1String(c.preco))
            << c.prod << " " << c.empr << " " << c.dia.toString(Qt::ISODate).toStdString();
}

} // namespace
