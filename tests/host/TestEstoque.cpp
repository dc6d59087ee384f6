#include "ErroBanco.h"
#include "NotasTeste.h"
#include "UEstoque.h"
#include "UProduto.h"

#include <gtest/gtest.h>

namespace {

class Estoque : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 20), QTime(10, 30)); });
    }

    // At cost 4 each (20 in all), price 6, CFOP 1102, ICMS CST 20 of 12 and IPI of 2.5.
    int Movimento(int compra, int prod, double qtd, int tipo = 34, int estacao = 1)
    {
        TEstMovTrib trib;
        trib.icmsCst = 20; trib.vICMS = Money::fromInt(12); trib.vIPI = Money::fromRaw(25000);
        return CompraEstMovInsNovo(db.conexao(), {1, estacao, compra, tipo}, prod, qtd, Money::fromInt(4),
                                   Money::fromInt(20), Money::fromInt(6), Money(), QLatin1Char(' '),
                                   QStringLiteral("1102"), trib);
    }

    QString Valor(const QString &sql) { return db.valor(sql); }
    void Nota(const NotaTeste &n) { ASSERT_EQ(InserirNota(db, n), QString()); }

    TestDatabase db;
};

TEST_F(Estoque, MovimentosCustosDesbaixaEEnvio)
{
    // Note type, direction, quantity as written, balance.
    const struct { int tipo; const char *tipoMov, *qtd, *saldo; } casos[] = {
        {34, "E", "5", "5"}, {35, "S", "-5", "-5"}, {36, "S", "-5", "-5"}, {37, "E", "5", "5"},
        {38, "E", "5", "5"}, {39, "C", "5", "0"},   {41, "E", "5", "5"},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.tipo);
        const int prod = 100 + c.tipo;   // one product per case, so each balance stands alone
        const int mov = Movimento(c.tipo, prod, 5, c.tipo);
        EXPECT_EQ(Valor(QStringLiteral("select tipo || ' ' || qtd || ' ' || estacao_cod || ' ' || custo || ' ' || "
                                       "custo_tot || ' ' || nitem || ' ' || preco_unit || ' ' || preco_atual || ' ' || cfop || ' ' || vipi || ' ' || cancelado "
                                       "from est_mov where est_mov_cod=%1").arg(mov)),
                  QStringLiteral("%1 %2.0000 10 4.0000 20.0000 1 4.0000 6.0000 1102 2.5000 N")
                      .arg(QLatin1String(c.tipoMov), QLatin1String(c.qtd)));
        EXPECT_EQ(Saldo(db, 1, prod), QLatin1String(c.saldo));
    }
    // The next line of a note is its second item.
    EXPECT_EQ(Valor(QStringLiteral("select nitem from est_mov where est_mov_cod=%1").arg(Movimento(34, 134, 1))), "2");

    // The link carries the note's own station; the composed product's kind goes with the movement.
    const QString sql = QStringLiteral("select m.tipo || ' ' || l.estacao_cod || ' ' || l.est_mov_estacao_cod || ' ' "
                                       "|| coalesce(m.prod_tipo_cod, '-') from est_mov m join compra_est_mov l on "
                                       "l.est_mov_cod=m.est_mov_cod where m.est_mov_cod=%1");
    EXPECT_EQ(Valor(sql.arg(Movimento(50, 1, 2, 35, 4))), QLatin1String("S 4 10 -"));
    EXPECT_EQ(Valor(sql.arg(Movimento(50, 3, 1, 34, 3))), QLatin1String("E 3 10 %"));

    // A link that cannot be written takes its movement with it.
    ASSERT_EQ(db.exec(QStringLiteral("create exception e_teste 'ligacao bloqueada'")), QString());
    ASSERT_EQ(db.exec(QStringLiteral("create trigger compra_est_mov_teste for compra_est_mov before insert as "
                                     "begin exception e_teste; end")), QString());
    const QString movimentos = Valor(QStringLiteral("select count(*) from est_mov"));
    EXPECT_THROW(Movimento(50, 2, 1), EErroBanco);
    EXPECT_EQ(Valor(QStringLiteral("select count(*) from est_mov")), movimentos);
    ASSERT_EQ(db.exec(QStringLiteral("drop trigger compra_est_mov_teste")), QString());
    // Likewise a price history row without the current price it sets.
    ASSERT_EQ(db.exec(QStringLiteral("create trigger preco_teste for prod_preco_atual before update as "
                                     "begin exception e_teste; end")), QString());
    EXPECT_THROW(ProdInserirPreco(1, 1, 2, Money::fromInt(7), Money(), QDate(2026, 11, 20), QLatin1Char('N')), EErroBanco);
    EXPECT_EQ(Valor(QStringLiteral("select count(*) from prod_preco")), QLatin1String("0"));

    ProdInserirCusto(1, 1, Money::fromRaw(125000), 2, 7, 70);
    ProdInserirCusto(1, 1, Money::fromInt(13), 2, 8, 80);
    ProdInserirCusto(1, 2, Money::fromInt(5), 0, 9, 90);   // no supplier: only the general cost
    EXPECT_EQ(Valor(QStringLiteral("select list(prod_cod || ':' || coalesce(fornec_cod, 0) || ':' || custo, ' ') from "
                                   "(select * from prod_custo_atual where empr_cod=1 and prod_cod<3 order by prod_cod, "
                                   "coalesce(fornec_cod, 0))")),
              QLatin1String("1:0:13.0000 1:2:13.0000 2:0:5.0000"));
    EXPECT_EQ(Valor(QStringLiteral("select '' || dt from prod_custo_atual where fornec_cod=2")), QLatin1String("2026-11-20"));
    EXPECT_EQ(Valor(QStringLiteral("select list(custo || ':' || compra_cod || ':' || est_mov_cod, ' ') from "
                                   "(select custo, compra_cod, est_mov_cod from prod_custo order by prod_custo_cod)")),
              QLatin1String("12.5000:7:70 13.0000:8:80 5.0000:9:90"));

    // Unposting and sending, on movements of their own.
    for (const char *tabela : {"est_mov_compo", "compra_est_mov", "est_mov"})
        ASSERT_EQ(db.exec(QStringLiteral("delete from ") + QLatin1String(tabela)), QString());
    Nota({.compra = 5, .tipo = 36, .destin = 2, .baixado = true, .itens = {}});
    const int mov = Movimento(5, 3, 4, 36);
    ASSERT_EQ(db.exec(QStringLiteral("insert into est_mov_compo (empr_cod, est_mov_cod, est_mov_compo_cod, prod_cod_filho, qtd) "
                                     "values (2, %1, 1, 1, 8)").arg(mov)), QString());
    ASSERT_EQ(Saldo(db, 1, 3), QLatin1String("-4"));

    // Sending again replaces the first entries instead of adding to them.
    for (int vez = 1; vez <= 2; ++vez) {
        EXPECT_EQ(Quenor_EstMov_EnvCompra(1, 5, 2, db.caminho()), 1);
        EXPECT_EQ(Saldo(db, 2, 3), QLatin1String("4")) << "sent " << vez << " times";
    }
    EXPECT_EQ(Valor(QStringLiteral("select custo || '/' || cfop || '/' || tipo from est_mov where empr_cod=2")),
              QLatin1String("4.0000/1102/E"));

    DesbaixarCompra(1, 5, db.caminho());
    EXPECT_EQ(Saldo(db, 1, 3) + '/' + Saldo(db, 2, 3), QLatin1String("0/0"));
    EXPECT_EQ(Valor(QStringLiteral("select (select count(*) from est_mov) || (select count(*) from est_mov_compo) || "
                                   "(select count(*) from compra_est_mov) || (select count(*) from compra_est_mov_env) "
                                   "|| (select baixado from compra where compra_cod=5) from rdb$database")),
              QLatin1String("0000N")) << "movements, inputs, links and sendings gone, note open again";
}

} // namespace
