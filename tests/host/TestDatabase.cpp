#include "Database.h"
#include "TConexaoSQL.h"
#include "TestDatabase.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QSet<QString> nomes(TConexaoSQL &conexao, const QString &sql)
{
    QSet<QString> resultado;
    const auto q = conexao.Ab(sql);
    if (!q)
        return resultado;
    for (q->First(); !q->Eof(); q->Next())
        resultado.insert(q->Fields(0).AsString().trimmed().toLower());
    return resultado;
}

// A database made from nothing, through the engine's own creation call, with the demo store.
class DatabaseFromNothing : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(pasta.isValid());
        banco.database = pasta.filePath(QStringLiteral("novo/pavrel.fdb"));
        QString erro;
        ASSERT_TRUE(Database::CreateWithSchema(banco, true, &erro)) << erro.toStdString();
    }
    void TearDown() override { TConexaoSQL::FecharOciosas(banco.database); }

    QTemporaryDir pasta;
    TDadosBanco banco;
};

TEST_F(DatabaseFromNothing, HoldsEveryDocumentedTableColumnAndGenerator)
{
    QFile esperado(QStringLiteral(PAVREL_TESTS_DIR "/host/EsquemaEsperado.txt"));
    ASSERT_TRUE(esperado.open(QIODevice::ReadOnly | QIODevice::Text));
    TConexaoSQL conexao(banco);
    const QSet<QString> generators = nomes(conexao, QStringLiteral("select rdb$generator_name from rdb$generators"));
    int conferidos = 0;
    for (const QString &linha : QString::fromUtf8(esperado.readAll()).split(QLatin1Char('\n'))) {
        if (linha.trimmed().isEmpty() || linha.startsWith(QLatin1Char('#')))
            continue;
        const QString tipo = linha.section(QLatin1Char(':'), 0, 0).trimmed().toLower();
        const QStringList itens = linha.section(QLatin1Char(':'), 1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (tipo == QLatin1String("generator")) {
            for (const QString &g : itens)
                EXPECT_TRUE(generators.contains(g.toLower())) << "generator " << g.toStdString();
        } else {
            const QSet<QString> colunas = nomes(conexao,
                QStringLiteral("select rdb$field_name from rdb$relation_fields where rdb$relation_name=upper('%1')").arg(tipo));
            EXPECT_FALSE(colunas.isEmpty()) << "table " << tipo.toStdString();
            for (const QString &c : itens)
                EXPECT_TRUE(colunas.contains(c.toLower())) << tipo.toStdString() << "." << c.toStdString();
        }
        ++conferidos;
    }
    EXPECT_GT(conferidos, 20);
}

TEST_F(DatabaseFromNothing, DemoStoreLeavesGeneratorsPastItsCodes)
{
    TConexaoSQL conexao(banco);
    ASSERT_GT(conexao.ValorInt(QStringLiteral("select count(*) from compra")), 0);
    ASSERT_GT(conexao.ValorInt(QStringLiteral("select count(*) from empr")), 1);
    const int maior = conexao.ValorInt(QStringLiteral("select max(compra_cod) from compra"));
    EXPECT_GT(conexao.ProximoGenerator(QStringLiteral("compra_g")), maior);
}

TEST(DatabaseCreation, RefusesWithAClearMessage)
{
    QTemporaryDir pasta;
    QString erro;
    TDadosBanco existente{pasta.filePath(QStringLiteral("ja.fdb"))};
    QFile(existente.database).open(QIODevice::WriteOnly);
    EXPECT_FALSE(Database::CreateEmpty(existente, &erro));
    EXPECT_TRUE(erro.contains(existente.database)) << erro.toStdString();

    // A folder that cannot exist: its parent is a file.
    TDadosBanco impossivel{existente.database + QStringLiteral("/sub/x.fdb")};
    erro.clear();
    EXPECT_FALSE(Database::CreateWithSchema(impossivel, false, &erro));
    EXPECT_FALSE(erro.isEmpty());
}

TEST(DatabaseScript, SplitsOnlyOnRealStatementEnds)
{
    const QString script = QStringLiteral(
        "-- a comment; with a semicolon\n"
        "create table t (a integer);\n"
        "insert into t values ('x;y');  /* block ; comment */\n"
        "insert into t values ('it''s; fine');\n"
        "\n  ;  \n"
        "insert into t values (1)");
    const QStringList esperado = {QStringLiteral("create table t (a integer)"),
                                  QStringLiteral("insert into t values ('x;y')"),
                                  QStringLiteral("insert into t values ('it''s; fine')"),
                                  QStringLiteral("insert into t values (1)")};
    EXPECT_EQ(Database::SplitScript(script), esperado);
}

TEST(DatabasePaths, TellServersFromFiles)
{
    EXPECT_TRUE(Database::IsServerPath(QStringLiteral("loja:/dados/pavrel.fdb")));
    EXPECT_TRUE(Database::IsServerPath(QStringLiteral("192.168.0.10/3051:/dados/pavrel.fdb")));
    EXPECT_FALSE(Database::IsServerPath(QStringLiteral("/home/loja/pavrel.fdb")));
    EXPECT_FALSE(Database::IsServerPath(QStringLiteral("pavrel.fdb")));
    EXPECT_TRUE(Database::DefaultPath().endsWith(QStringLiteral("/pavrel.fdb")));
}

} // namespace
