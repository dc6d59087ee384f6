#include "Config.h"
#include "TestDatabase.h"

#include <gtest/gtest.h>

namespace {

TEST(ConfigFlags, FollowTheTrimmedValueAndTheKeyIsQuoted)
{
    TestDatabase db(TestDatabase::Conteudo::SoEsquema);
    ASSERT_TRUE(db.ok()) << db.erro().toStdString();
    // valor nullptr: no row at all. salvoN: on unless exactly "N"; seS: on only when exactly "S".
    const struct { const char *nome, *valor; bool salvoN, seS; } casos[] = {
        {"MissingRow", nullptr, true, false}, {"Empty", "", true, false}, {"ExactN", "N", false, false},
        {"NWithBlanks", " N ", false, false}, {"LowerNIsNotN", "n", true, false}, {"ExactS", "S", true, true},
        {"SWithBlanks", " S ", true, true}, {"LowerSIsNotS", "s", true, false}, {"OtherText", "SIM", true, false},
    };
    const QString chave = QStringLiteral("CHAVE_TESTE");
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nome);
        ASSERT_EQ(db.exec(QStringLiteral("delete from config")), QString());
        if (c.valor) {
            ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('%1', '%2')")
                                  .arg(chave, QLatin1String(c.valor))), QString());
        }
        ASSERT_EQ(db.valor(QStringLiteral("select count(*) from config")), QString::number(c.valor ? 1 : 0));
        EXPECT_EQ(Config::LigadoSalvoN(db.conexao(), chave), c.salvoN);
        EXPECT_EQ(Config::LigadoSeS(db.conexao(), chave), c.seS);
        EXPECT_EQ(Config::LigadoSeSOuSemBanco(db.conexao(), chave), c.seS);
    }
    EXPECT_EQ(Config::Valor(db.conexao(), QStringLiteral("X' or chave='CHAVE_TESTE")), QString());
}

TEST(ConfigFlags, OnlyTheDedicatedReaderIsOnWhenTheDatabaseCannotBeReached)
{
    TConexaoSQL semBanco(TDadosBanco{QStringLiteral("/nonexistent/folder/none.fdb")});
    EXPECT_TRUE(Config::LigadoSeSOuSemBanco(semBanco, QStringLiteral("REP_PRODUC_CUSTO_CRIA")));
    EXPECT_TRUE(Config::LigadoSalvoN(semBanco, QStringLiteral("REP_IPI_SOMAR")));
    EXPECT_FALSE(Config::LigadoSeS(semBanco, QStringLiteral("REP_PRODUC_CUSTO_CRIA")));
}

TEST(ConfigStore, KeepsPerUserValues)
{
    EXPECT_EQ(ConfigLerStr(QStringLiteral("REP_XMLIMPORT_PASTAINI"), QStringLiteral("/padrao")), QStringLiteral("/padrao"));
    ConfigGravarStr(QStringLiteral("REP_XMLIMPORT_PASTAINI"), QStringLiteral("/home/loja/xml"));
    EXPECT_EQ(ConfigLerStr(QStringLiteral("REP_XMLIMPORT_PASTAINI")), QStringLiteral("/home/loja/xml"));
}

} // namespace
