#include "Config.h"
#include "TestDatabase.h"

#include <gtest/gtest.h>

namespace {

struct FlagCase
{
    const char *nome;
    const char *valor;          // nullptr: no row at all
    bool salvoN;                // on unless exactly "N"
    bool seS;                   // on only when exactly "S"
};

class ConfigFlags : public ::testing::TestWithParam<FlagCase>
{
};

TEST_P(ConfigFlags, FollowTheTrimmedValue)
{
    TestDatabase db(TestDatabase::Conteudo::SoEsquema);
    ASSERT_TRUE(db.ok()) << db.erro().toStdString();
    const FlagCase c = GetParam();
    if (c.valor) {
        ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('CHAVE_TESTE', '%1')")
                              .arg(QString::fromUtf8(c.valor))), QString());
    }
    ASSERT_EQ(db.valor(QStringLiteral("select count(*) from config")), c.valor ? QStringLiteral("1") : QStringLiteral("0"));

    EXPECT_EQ(Config::LigadoSalvoN(db.conexao(), QStringLiteral("CHAVE_TESTE")), c.salvoN);
    EXPECT_EQ(Config::LigadoSeS(db.conexao(), QStringLiteral("CHAVE_TESTE")), c.seS);
    EXPECT_EQ(Config::LigadoSeSOuSemBanco(db.conexao(), QStringLiteral("CHAVE_TESTE")), c.seS);
}

INSTANTIATE_TEST_SUITE_P(, ConfigFlags, ::testing::Values(
    FlagCase{"missing_row", nullptr, true, false},
    FlagCase{"empty", "", true, false},
    FlagCase{"exact_N", "N", false, false},
    FlagCase{"N_with_blanks", " N ", false, false},
    FlagCase{"lower_n_is_not_N", "n", true, false},
    FlagCase{"exact_S", "S", true, true},
    FlagCase{"S_with_blanks", " S ", true, true},
    FlagCase{"lower_s_is_not_S", "s", true, false},
    FlagCase{"other_text", "SIM", true, false}),
    [](const auto &caso) { return std::string(caso.param.nome); });

TEST(ConfigDedicatedReader, IsOnWhenTheDatabaseCannotBeReached)
{
    TConexaoSQL semBanco(TDadosBanco{QStringLiteral("/nonexistent/folder/none.fdb")});
    EXPECT_TRUE(Config::LigadoSeSOuSemBanco(semBanco, QStringLiteral("REP_PRODUC_CUSTO_CRIA")));
    // The other two readers fall back to their defaults.
    EXPECT_TRUE(Config::LigadoSalvoN(semBanco, QStringLiteral("REP_IPI_SOMAR")));
    EXPECT_FALSE(Config::LigadoSeS(semBanco, QStringLiteral("REP_PRODUC_CUSTO_CRIA")));
}

TEST(ConfigValue, KeyWithQuoteCannotChangeTheStatement)
{
    TestDatabase db(TestDatabase::Conteudo::SoEsquema);
    ASSERT_TRUE(db.ok()) << db.erro().toStdString();
    ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('A', 'S')")), QString());
    EXPECT_EQ(Config::Valor(db.conexao(), QStringLiteral("X' or chave='A")), QString());
}

TEST(ConfigStore, KeepsPerUserValues)
{
    EXPECT_EQ(ConfigLerStr(QStringLiteral("REP_XMLIMPORT_PASTAINI"), QStringLiteral("/padrao")), QStringLiteral("/padrao"));
    ConfigGravarStr(QStringLiteral("REP_XMLIMPORT_PASTAINI"), QStringLiteral("/home/loja/xml"));
    EXPECT_EQ(ConfigLerStr(QStringLiteral("REP_XMLIMPORT_PASTAINI")), QStringLiteral("/home/loja/xml"));
}

} // namespace
