#include "Contexto.h"
#include "NotasTeste.h"
#include "TConexaoSQL.h"
#include "TestDatabase.h"
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

    void Nota(int estacao, int compra, int tipo)
    {
        NotaTeste n;
        n.estacao = estacao;
        n.compra = compra;
        n.tipo = tipo;
        ASSERT_EQ(InserirNota(db, n), QString());
    }

    int Movimento(int compra, int prod, double qtd, int estacao = 1)
    {
        TEstMovTrib trib;
        trib.icmsCst = 20;
        trib.vICMS = Money::fromInt(12);
        trib.vIPI = Money::fromRaw(25000);
        return CompraEstMovInsNovo(db.conexao(), 1, estacao, compra, prod, qtd, Money::fromInt(4), Money::fromInt(20),
                                   Money::fromInt(6), Money(), QLatin1Char(' '), QStringLiteral("1102"), trib);
    }

    QString Valor(const QString &sql) { return db.valor(sql); }
    int Conta(const QString &tabela) { return Valor(QStringLiteral("select count(*) from ") + tabela).toInt(); }

    TestDatabase db;
};

TEST_F(Estoque, DirecaoDoMovimentoSegueOTipoDoDocumento)
{
    struct Caso
    {
        int tipo;
        const char *tipoMov;
        const char *qtdGravada;
        const char *saldo;
    };
    const Caso casos[] = {
        {34, "E", "5", "5"},  {35, "S", "-5", "-5"}, {36, "S", "-5", "-5"}, {37, "E", "5", "5"},
        {38, "E", "5", "5"},  {39, "C", "5", "0"},   {41, "E", "5", "5"},
    };
    int compra = 0;
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.tipo);
        ++compra;
        Nota(1, compra, c.tipo);
        const int prod = 100 + compra;   // one product per case, so each balance stands alone
        const int mov = Movimento(compra, prod, 5);
        // Every value in its column, the quantity signed by the direction.
        EXPECT_EQ(Valor(QStringLiteral("select tipo || ' ' || qtd || ' ' || estacao_cod || ' ' || custo || ' ' || "
                                       "custo_tot || ' ' || preco_unit || ' ' || cfop || ' ' || vipi || ' ' || cancelado "
                                       "from est_mov where est_mov_cod=%1").arg(mov)),
                  QStringLiteral("%1 %2.0000 10 4.0000 20.0000 6.0000 1102 2.5000 N").arg(QLatin1String(c.tipoMov),
                                                                                        QLatin1String(c.qtdGravada)));
        EXPECT_EQ(Saldo(db, 1, prod), QLatin1String(c.saldo));
    }
}

TEST_F(Estoque, LigacaoLevaAEstacaoDaNotaEscolhidaPelaEstacaoQueBaixa)
{
    // Two workstations created notes with the same code: the posting station picks its own.
    Nota(3, 50, 34);
    Nota(4, 50, 35);
    const int mov = Movimento(50, 1, 2, 4);
    EXPECT_EQ(Valor(QStringLiteral("select tipo from est_mov where est_mov_cod=%1").arg(mov)), QLatin1String("S"));
    EXPECT_EQ(Valor(QStringLiteral("select estacao_cod from compra_est_mov where est_mov_cod=%1").arg(mov)),
              QLatin1String("4"));
    EXPECT_EQ(Valor(QStringLiteral("select est_mov_estacao_cod from compra_est_mov where est_mov_cod=%1").arg(mov)),
              QLatin1String("10"));
    // The composed product's kind goes with its movement.
    const int mov3 = Movimento(50, 3, 1, 3);
    EXPECT_EQ(Valor(QStringLiteral("select prod_tipo_cod from est_mov where est_mov_cod=%1").arg(mov3)), QLatin1String("%"));
}

TEST_F(Estoque, AjusteTribPreencheOsCamposDoHost)
{
    Nota(1, 1, 34);
    const int mov = Movimento(1, 2, 1);
    const QString sql = QStringLiteral("select trat_icms || '/' || icms_val || '/' || trib_cod from est_mov where "
                                       "est_mov_cod=%1").arg(mov);
    // Written in step by the movement routine already...
    EXPECT_EQ(Valor(sql), QLatin1String("20/12.0000/3"));
    // ...and brought back in step when something else changed them.
    ASSERT_EQ(db.exec(QStringLiteral("update est_mov set trat_icms=99, icms_val=0, trib_cod=null")), QString());
    EstMovAjusteTrib(db.conexao(), 1, 1, mov, Money::fromInt(12));
    EXPECT_EQ(Valor(sql), QLatin1String("20/12.0000/3"));
}

TEST_F(Estoque, CustoAtualizaOGeralSemDuplicarECriaODoFornecedor)
{
    ProdInserirCusto(1, 1, Money::fromRaw(125000), 2, 7, 70);
    ProdInserirCusto(1, 1, Money::fromInt(13), 2, 8, 80);
    ProdInserirCusto(1, 2, Money::fromInt(5), 0, 9, 90);

    EXPECT_EQ(Valor(QStringLiteral("select count(*) || '/' || max(custo) from prod_custo_atual where empr_cod=1 and "
                                   "prod_cod=1 and coalesce(fornec_cod, 0)=0")),
              QLatin1String("1/13.0000"));
    EXPECT_EQ(Valor(QStringLiteral("select count(*) || '/' || max(custo) || '/' || max(dt) from prod_custo_atual "
                                   "where prod_cod=1 and fornec_cod=2")),
              QLatin1String("1/13.0000/2026-11-20"));
    // No supplier: only the general cost.
    EXPECT_EQ(Valor(QStringLiteral("select count(*) from prod_custo_atual where prod_cod=2")), QLatin1String("1"));
    EXPECT_EQ(Valor(QStringLiteral("select list(custo || ':' || compra_cod || ':' || est_mov_cod, ' ') from "
                                   "(select custo, compra_cod, est_mov_cod from prod_custo order by prod_custo_cod)")),
              QLatin1String("12.5000:7:70 13.0000:8:80 5.0000:9:90"));
}

TEST_F(Estoque, DesbaixarEEnviarMovemOSaldoDasDuasEmpresas)
{
    NotaTeste n;
    n.compra = 5;
    n.tipo = 36;
    n.destin = 2;
    n.baixado = true;
    ASSERT_EQ(InserirNota(db, n), QString());
    const int mov = Movimento(5, 3, 4);
    ASSERT_EQ(db.exec(QStringLiteral("insert into est_mov_compo (empr_cod, est_mov_cod, est_mov_compo_cod, "
                                     "prod_cod_filho, qtd) values (2, %1, 1, 1, 8)").arg(mov)),
              QString());
    ASSERT_EQ(Saldo(db, 1, 3), QLatin1String("-4"));

    EXPECT_EQ(Quenor_EstMov_EnvCompra(1, 5, 2, db.caminho()), 1);
    EXPECT_EQ(Saldo(db, 2, 3), QLatin1String("4"));
    // Sending again replaces the first entries instead of adding to them.
    EXPECT_EQ(Quenor_EstMov_EnvCompra(1, 5, 2, db.caminho()), 1);
    EXPECT_EQ(Saldo(db, 2, 3), QLatin1String("4"));
    EXPECT_EQ(Valor(QStringLiteral("select custo || '/' || cfop || '/' || tipo from est_mov where empr_cod=2")),
              QLatin1String("4.0000/1102/E"));

    DesbaixarCompra(1, 5, db.caminho());
    EXPECT_EQ(Saldo(db, 1, 3), QLatin1String("0"));
    EXPECT_EQ(Saldo(db, 2, 3), QLatin1String("0"));
    EXPECT_EQ(Conta(QStringLiteral("est_mov")), 0);
    EXPECT_EQ(Conta(QStringLiteral("est_mov_compo")), 0);
    EXPECT_EQ(Conta(QStringLiteral("compra_est_mov")), 0);
    EXPECT_EQ(Conta(QStringLiteral("compra_est_mov_env")), 0);
    EXPECT_EQ(Valor(QStringLiteral("select baixado from compra where compra_cod=5")), QLatin1String("N"));
}

} // namespace
