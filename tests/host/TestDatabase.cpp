#include "Database.h"
#include "TConexaoSQL.h"
#include "TestDatabase.h"

#include <QFile>
#include <QScopeGuard>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// Every "table.column" and "generator.name" the database holds, in lower case.
QSet<QString> Objetos(TConexaoSQL &conexao)
{
    QSet<QString> nomes;
    const auto q = conexao.Ab(QStringLiteral(
        "select lower(trim(rdb$relation_name)) || '.' || lower(trim(rdb$field_name)) from rdb$relation_fields "
        "union all select 'generator.' || lower(trim(rdb$generator_name)) from rdb$generators"));
    for (; q && !q->Eof(); q->Next())
        nomes.insert(q->Fields(0).AsString());
    return nomes;
}

// Made from nothing, through the engine's own creation call, with the demo store.
TEST(DatabaseFromNothing, HoldsEveryDocumentedObjectAndGeneratorsPastTheDemoCodes)
{
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    const TDadosBanco banco{pasta.filePath(QStringLiteral("novo/pavrel.fdb"))};
    QString erro;
    ASSERT_TRUE(Database::CreateWithSchema(banco, true, &erro)) << erro.toStdString();
    const auto fechar = qScopeGuard([&] { TConexaoSQL::FecharOciosas(banco.database); });
    QFile esperado(QStringLiteral(PAVREL_TESTS_DIR "/host/EsquemaEsperado.txt"));
    ASSERT_TRUE(esperado.open(QIODevice::ReadOnly | QIODevice::Text));
    TConexaoSQL conexao(banco);
    const QSet<QString> objetos = Objetos(conexao);
    int conferidos = 0;
    for (const QString &linha : QString::fromUtf8(esperado.readAll()).split(QLatin1Char('\n'))) {
        if (linha.trimmed().isEmpty() || linha.startsWith(QLatin1Char('#')))
            continue;
        const QString tipo = linha.section(QLatin1Char(':'), 0, 0).trimmed().toLower();
        for (const QString &item : linha.section(QLatin1Char(':'), 1).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QString nome = tipo + QLatin1Char('.') + item.toLower();
            EXPECT_TRUE(objetos.contains(nome)) << nome.toStdString();
        }
        ++conferidos;
    }
    EXPECT_GT(conferidos, 20);

    ASSERT_GT(conexao.ValorInt(QStringLiteral("select count(*) from compra")), 0);
    ASSERT_GT(conexao.ValorInt(QStringLiteral("select count(*) from empr")), 1);
    const int maior = conexao.ValorInt(QStringLiteral("select max(compra_cod) from compra"));
    EXPECT_GT(conexao.ProximoGenerator(QStringLiteral("compra_g")), maior);
}

TEST(DatabaseCreation, RefusesWithAClearMessage)
{
    QTemporaryDir pasta;
    QString erro;
    const TDadosBanco existente{pasta.filePath(QStringLiteral("ja.fdb"))};
    ASSERT_TRUE(QFile(existente.database).open(QIODevice::WriteOnly));
    EXPECT_FALSE(Database::CreateEmpty(existente, &erro));
    EXPECT_TRUE(erro.contains(existente.database)) << erro.toStdString();
    // A folder that cannot exist: its parent is a file.
    const TDadosBanco impossivel{existente.database + QStringLiteral("/sub/x.fdb")};
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
    EXPECT_EQ(Database::SplitScript(script),
              (QStringList{"create table t (a integer)", "insert into t values ('x;y')",
                           "insert into t values ('it''s; fine')", "insert into t values (1)"}));
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
