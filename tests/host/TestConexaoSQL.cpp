#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TestDatabase.h"
#include "Valores.h"

#include <QLoggingCategory>
#include <QTcpServer>

#include <gtest/gtest.h>

namespace {

class ConexaoSQL : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }
    TestDatabase db{TestDatabase::Conteudo::SoEsquema};
};

TEST_F(ConexaoSQL, PairsOfCallsReuseOneAttachment)
{
    TConexaoSQL conexao(db.banco());
    ASSERT_TRUE(conexao.Conectar()) << conexao.UltimoErro().toStdString();
    conexao.Desconectar();
    const int antes = TConexaoSQL::AnexacoesAbertas();
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(conexao.Conectar());
        conexao.Desconectar();
        TConexaoSQL outra(db.banco());
        ASSERT_EQ(outra.ValorInt(QStringLiteral("select 1 from RDB$DATABASE")), 1);
    }
    EXPECT_EQ(TConexaoSQL::AnexacoesAbertas(), antes);
}

TEST_F(ConexaoSQL, NestedCallsAreCountedAndTwoHoldersGetTwoAttachments)
{
    TConexaoSQL a(db.banco());
    TConexaoSQL b(db.banco());
    ASSERT_TRUE(a.Conectar());
    ASSERT_TRUE(a.Conectar());
    a.Desconectar();
    EXPECT_TRUE(a.Conectado());
    ASSERT_TRUE(b.Conectar());
    EXPECT_NE(a.NomeConexao(), b.NomeConexao());
    a.Desconectar();
    b.Desconectar();
    EXPECT_FALSE(a.Conectado());
}

TEST_F(ConexaoSQL, EveryStatementTakesEffectAsItRuns)
{
    TConexaoSQL escreve(db.banco());
    TConexaoSQL le(db.banco());
    ASSERT_TRUE(escreve.Conectar());
    ASSERT_TRUE(le.Conectar());
    ASSERT_TRUE(escreve.Exec(QStringLiteral("insert into config (chave, valor) values ('K', 'V')")))
        << escreve.UltimoErro().toStdString();
    EXPECT_EQ(le.ValorStr(QStringLiteral("select valor from config where chave='K'")), QStringLiteral("V"));
    escreve.Desconectar();
    le.Desconectar();
}

TEST_F(ConexaoSQL, TextsTravelIntactThroughQuotedStr)
{
    const QStringList textos = {QStringLiteral("D'Ávila & Cia; Ltda"), QStringLiteral("''"),
                                QStringLiteral("x'); delete from config; --"), QStringLiteral("ÇÃO ção ü")};
    TConexaoSQL conexao(db.banco());
    int n = 0;
    for (const QString &texto : textos) {
        const QString chave = QStringLiteral("T%1").arg(++n);
        ASSERT_TRUE(conexao.Exec(QStringLiteral("insert into config (chave, valor) values (%1, %2)")
                                     .arg(QuotedStr(chave), QuotedStr(texto))))
            << conexao.UltimoErro().toStdString();
        EXPECT_EQ(conexao.ValorStr(QStringLiteral("select valor from config where chave=") + QuotedStr(chave)), texto);
    }
    EXPECT_EQ(conexao.ValorInt(QStringLiteral("select count(*) from config")), textos.size());
}

TEST_F(ConexaoSQL, NumericColumnsReachMoneyWithoutDouble)
{
    ASSERT_EQ(db.exec(QStringLiteral("insert into tab_preco (tab_preco_cod, nome) values (1, 'VAREJO')")), QString());
    ASSERT_EQ(db.exec(QStringLiteral("insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco) "
                                     "values (1, 1, 1, 92233720368.5477)")), QString());
    TConexaoSQL conexao(db.banco());
    const auto q = conexao.Ab(QStringLiteral("select preco from prod_preco_atual"));
    ASSERT_TRUE(q) << conexao.UltimoErro().toStdString();
    ASSERT_FALSE(q->Eof());
    EXPECT_EQ(q->FieldByName(QStringLiteral("PRECO")).AsMoney().raw(), 922337203685477LL);
    EXPECT_THROW(q->FieldByName(QStringLiteral("nao_existe")), std::invalid_argument);
}

TEST_F(ConexaoSQL, RoundAmountsArriveAsPlainDecimals)
{
    ASSERT_EQ(db.exec(QStringLiteral("insert into tab_preco (tab_preco_cod, nome) values (1, 'VAREJO')")), QString());
    const QList<std::pair<QString, qint64>> valores = {
        {QStringLiteral("1000000"), 10000000000LL}, {QStringLiteral("0.0005"), 5}, {QStringLiteral("20000000"), 200000000000LL},
        {QStringLiteral("-0.0001"), -1}, {QStringLiteral("1234.5"), 12345000}};
    int prod = 0;
    for (const auto &[texto, bruto] : valores)
        ASSERT_EQ(db.exec(QStringLiteral("insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco) "
                                         "values (1, 1, %1, %2)").arg(++prod).arg(texto)), QString());
    TConexaoSQL conexao(db.banco());
    const auto q = conexao.Ab(QStringLiteral("select preco from prod_preco_atual order by prod_cod"));
    ASSERT_TRUE(q);
    for (const auto &[texto, bruto] : valores) {
        ASSERT_FALSE(q->Eof());
        EXPECT_EQ(q->Fields(0).AsMoney().raw(), bruto) << texto.toStdString();
        EXPECT_FALSE(q->Fields(0).AsString().contains(QLatin1Char('e'))) << q->Fields(0).AsString().toStdString();
        q->Next();
    }
}

TEST_F(ConexaoSQL, FixedWidthTextComesWithoutItsPadding)
{
    ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, baixado, serie) "
                                     "values (1, 1, 1, '\"', 'S', ' 1 ')")), QString());
    TConexaoSQL conexao(db.banco());
    const auto q = conexao.Ab(QStringLiteral("select tipo_cod, baixado, cancelado, serie from compra"));
    ASSERT_TRUE(q && !q->Eof()) << conexao.UltimoErro().toStdString();
    EXPECT_EQ(q->FieldByName(QStringLiteral("tipo_cod")).AsString(), QStringLiteral("\""));
    EXPECT_TRUE(q->FieldByName(QStringLiteral("baixado")).AsBoolean());
    EXPECT_EQ(q->FieldByName(QStringLiteral("cancelado")).AsString(), QStringLiteral("N"));
    EXPECT_EQ(q->FieldByName(QStringLiteral("serie")).AsString(), QStringLiteral(" 1 "));
}

TEST_F(ConexaoSQL, FailuresReturnTheDriverText)
{
    TConexaoSQL conexao(db.banco());
    EXPECT_FALSE(conexao.Exec(QStringLiteral("insert into tabela_inexistente values (1)")));
    EXPECT_TRUE(conexao.UltimoErro().contains(QStringLiteral("TABELA_INEXISTENTE"), Qt::CaseInsensitive))
        << conexao.UltimoErro().toStdString();
    EXPECT_EQ(conexao.Ab(QStringLiteral("select x from y")), nullptr);
    EXPECT_EQ(conexao.ValorInt(QStringLiteral("select x from y"), -5), -5);
    EXPECT_FALSE(conexao.Conectado());
}

TEST(ConexaoSQLSemBanco, MissingDatabaseGivesOneClearMessage)
{
    TConexaoSQL conexao(TDadosBanco{QStringLiteral("/nonexistent/pavrel.fdb")});
    EXPECT_FALSE(conexao.Conectar());
    EXPECT_TRUE(conexao.UltimoErro().contains(QStringLiteral("/nonexistent/pavrel.fdb"))) << conexao.UltimoErro().toStdString();
    EXPECT_FALSE(conexao.Exec(QStringLiteral("select 1 from RDB$DATABASE")));
}

TEST_F(ConexaoSQL, GeneratorsAdvanceByTheirStep)
{
    TConexaoSQL conexao(db.banco());
    const qint64 primeiro = conexao.ProximoGenerator(QStringLiteral("compra_g"));
    EXPECT_EQ(conexao.ProximoGenerator(QStringLiteral("compra_g")), primeiro + 1);
    EXPECT_EQ(conexao.ProximoGenerator(QStringLiteral("compra_g"), 10), primeiro + 11);
}

TEST_F(ConexaoSQL, StatementLogShowsWhatWasSentExactly)
{
    static QStringList capturados;
    capturados.clear();
    QLoggingCategory::setFilterRules(QStringLiteral("pavrel.sql.debug=true"));
    const auto anterior = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &ctx, const QString &msg) {
        if (QLatin1String(ctx.category) == QLatin1String("pavrel.sql"))
            capturados << msg;
    });
    const QString sql = QStringLiteral("select count(*) from config\r\n where chave='X'");
    TConexaoSQL(db.banco()).ValorInt(sql);
    qInstallMessageHandler(anterior);
    QLoggingCategory::setFilterRules(QStringLiteral("pavrel.sql.debug=false"));
    EXPECT_EQ(capturados, QStringList{sql});
}

TEST_F(ConexaoSQL, HostConnectionFollowsTheContext)
{
    EXPECT_EQ(TConexD::Conexao().GetDatabase(), db.caminho());
    EXPECT_TRUE(TConexD::Executar(QStringLiteral("insert into config (chave, valor) values ('H', 'S')")));
    EXPECT_EQ(ValorString(QStringLiteral("select valor from config where chave='H'")), QStringLiteral("S"));
    EXPECT_EQ(Inteiro(QStringLiteral("select count(*) from config")), 1);
}

TEST(ServerReachability, AnswersForFilesAndServers)
{
    TestDatabase db(TestDatabase::Conteudo::SoEsquema);
    ASSERT_TRUE(db.ok());
    EXPECT_TRUE(TTerminalModoOper::ConectouServidor(db.caminho()));
    EXPECT_FALSE(TTerminalModoOper::ConectouServidor(QStringLiteral("/nonexistent/x.fdb")));

    QTcpServer servidor;
    ASSERT_TRUE(servidor.listen(QHostAddress::LocalHost));
    EXPECT_TRUE(TTerminalModoOper::ConectouServidor(QStringLiteral("127.0.0.1/%1:/dados/x.fdb").arg(servidor.serverPort())));
    const quint16 porta = servidor.serverPort();
    servidor.close();
    EXPECT_FALSE(TTerminalModoOper::ConectouServidor(QStringLiteral("127.0.0.1/%1:/dados/x.fdb").arg(porta)));
}

} // namespace
