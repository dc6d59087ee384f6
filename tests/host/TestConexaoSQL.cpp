#include "TConexD.h"
#include "TestDatabase.h"
#include "Valores.h"

#include <QTcpServer>

#include <gtest/gtest.h>

namespace {

class ConexaoSQL : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }
    TestDatabase db{TestDatabase::Conteudo::SoEsquema};
};

TEST_F(ConexaoSQL, NestedCallsShareAnAttachmentTextsTakeEffectAsTheyRunAndColumnsArriveExactly)
{
    TConexaoSQL a(db.banco()), b(db.banco());
    ASSERT_TRUE(a.Conectar() && a.Conectar()) << a.UltimoErro().toStdString();
    a.Desconectar();
    EXPECT_TRUE(a.Conectado()) << "one of two nested calls ended";
    ASSERT_TRUE(b.Conectar());
    EXPECT_NE(a.NomeConexao(), b.NomeConexao()) << "two holders get two attachments";
    a.Desconectar(); b.Desconectar();
    EXPECT_FALSE(a.Conectado());

    const int antes = TConexaoSQL::AnexacoesAbertas();
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(a.Conectar());
        a.Desconectar();
        ASSERT_EQ(TConexaoSQL(db.banco()).ValorInt(QStringLiteral("select 1 from RDB$DATABASE")), 1);
    }
    EXPECT_EQ(TConexaoSQL::AnexacoesAbertas(), antes);

    // Written on one connection and read on another: each statement commits as it runs, and quoted
    // texts arrive intact.
    TConexaoSQL escreve(db.banco()), le(db.banco());
    ASSERT_TRUE(escreve.Conectar() && le.Conectar());
    const QStringList textos = {QStringLiteral("D'Ávila & Cia; Ltda"), QStringLiteral("''"),
                                QStringLiteral("x'); delete from config; --"), QStringLiteral("ÇÃO ção ü")};
    for (const QString &texto : textos) {
        const QString chave = QuotedStr(QString::number(textos.indexOf(texto)));
        ASSERT_TRUE(escreve.Exec(QStringLiteral("insert into config (chave, valor) values (%1, %2)").arg(chave, QuotedStr(texto))))
            << escreve.UltimoErro().toStdString();
        EXPECT_EQ(le.ValorStr(QStringLiteral("select valor from config where chave=") + chave), texto);
    }
    EXPECT_EQ(le.ValorInt(QStringLiteral("select count(*) from config")), textos.size());

    const QList<std::pair<const char *, qint64>> valores = {{"92233720368.5477", 922337203685477LL},
        {"1000000", 10000000000LL}, {"0.0005", 5}, {"-0.0001", -1}, {"1234.5", 12345000}};
    QStringList colunas;
    for (const auto &valor : valores)
        colunas << QStringLiteral("cast('%1' as numeric(18,4)) as c%2").arg(QLatin1String(valor.first)).arg(colunas.size());
    TConexaoSQL conexao(db.banco());
    const auto q = conexao.Ab(QStringLiteral("select %1 from RDB$DATABASE").arg(colunas.join(", ")));
    ASSERT_TRUE(q && !q->Eof()) << conexao.UltimoErro().toStdString();
    for (int i = 0; i < valores.size(); ++i) {
        const QString texto = q->Fields(i).AsString();
        EXPECT_EQ(q->FieldByName(QStringLiteral("c%1").arg(i)).AsMoney().raw(), valores[i].second) << texto.toStdString();
        EXPECT_FALSE(texto.contains(QLatin1Char('e'))) << texto.toStdString();
    }
    EXPECT_THROW(q->FieldByName(QStringLiteral("nao_existe")), std::invalid_argument);

    ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, baixado, serie) "
                                     "values (1, 1, 1, '\"', 'S', ' 1 ')")), QString());
    const auto c = conexao.Ab(QStringLiteral("select tipo_cod, baixado, cancelado, serie from compra"));
    ASSERT_TRUE(c && !c->Eof()) << conexao.UltimoErro().toStdString();
    EXPECT_TRUE(c->FieldByName(QStringLiteral("baixado")).AsBoolean());
    EXPECT_EQ(QStringList({c->Fields(0).AsString(), c->Fields(2).AsString(), c->Fields(3).AsString()}),
              (QStringList{"\"", "N", " 1 "}));
}

TEST_F(ConexaoSQL, FailuresReturnTheDriverTextGeneratorsTheirStepAndServersWhetherTheyAnswer)
{
    TConexaoSQL conexao(db.banco());
    EXPECT_FALSE(conexao.Exec(QStringLiteral("insert into tabela_inexistente values (1)")));
    EXPECT_TRUE(conexao.UltimoErro().contains(QStringLiteral("TABELA_INEXISTENTE"), Qt::CaseInsensitive))
        << conexao.UltimoErro().toStdString();
    EXPECT_TRUE(conexao.Ab(QStringLiteral("select x from y")) == nullptr && !conexao.Conectado());
    EXPECT_EQ(conexao.ValorInt(QStringLiteral("select x from y"), -5), -5);

    TConexaoSQL semBanco(TDadosBanco{QStringLiteral("/nonexistent/pavrel.fdb")});
    EXPECT_FALSE(semBanco.Conectar() || semBanco.Exec(QStringLiteral("select 1 from RDB$DATABASE")));
    EXPECT_TRUE(semBanco.UltimoErro().contains(QStringLiteral("/nonexistent/pavrel.fdb"))) << semBanco.UltimoErro().toStdString();

    // Generators advance by their step.
    const qint64 primeiro = conexao.ProximoGenerator(QStringLiteral("compra_g"));
    const qint64 segundo = conexao.ProximoGenerator(QStringLiteral("compra_g"));
    EXPECT_EQ(std::pair(segundo, conexao.ProximoGenerator(QStringLiteral("compra_g"), 10)), std::pair(primeiro + 1, primeiro + 11));

    // A server answers whether it is a file or a port.
    EXPECT_TRUE(TTerminalModoOper::ConectouServidor(db.caminho())
                && !TTerminalModoOper::ConectouServidor(QStringLiteral("/nonexistent/x.fdb")));
    QTcpServer servidor;
    ASSERT_TRUE(servidor.listen(QHostAddress::LocalHost));
    const QString endereco = QStringLiteral("127.0.0.1/%1:/dados/x.fdb").arg(servidor.serverPort());
    EXPECT_TRUE(TTerminalModoOper::ConectouServidor(endereco));
    servidor.close();
    EXPECT_FALSE(TTerminalModoOper::ConectouServidor(endereco));
}

} // namespace
