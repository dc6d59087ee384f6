#include "Config.h"
#include "Contexto.h"
#include "PastaFiscal.h"
#include "TextosHost.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TEST(PastaFiscal, OptionThenEnvironmentThenStoreThenTheUsersDataFolderCreatedOnFirstUse)
{
    QTemporaryDir dados;
    qputenv("XDG_DATA_HOME", dados.path().toUtf8());
    const QString padrao = dados.path() + QStringLiteral("/Pavrel/pavrel-tests/fiscal");
    const struct { const char *opcao, *ambiente, *config; QString esperada; } casos[] = {
        {"/op", "/amb", "/cfg", "/op"}, {" ", "/amb", "/cfg", "/amb"}, {"", "", "/cfg", "/cfg"}, {"", "", "", padrao},
    };
    for (const auto &c : casos) {
        qputenv("PAVREL_FISCAL_FOLDER", c.ambiente);
        ConfigGravarStr(QStringLiteral("PASTA_FISCAL"), QLatin1String(c.config));
        EXPECT_EQ(ResolverPastaFiscal(QLatin1String(c.opcao)), c.esperada);
    }
    Contexto::Atual().pastaFiscal.clear();
    ASSERT_FALSE(QDir(padrao).exists());
    EXPECT_EQ(PastaFiscal(), padrao + u'/');
    EXPECT_TRUE(QDir(padrao).exists());

    // A file where the folder should be: no folder, and a message naming it.
    QFile(dados.path() + QStringLiteral("/arquivo")).open(QIODevice::WriteOnly);
    Contexto::Atual().pastaFiscal = dados.path() + QStringLiteral("/arquivo/fiscal");
    QString erro;
    EXPECT_EQ(PastaFiscal(&erro), QString());
    EXPECT_EQ(erro, QStringLiteral("Não foi possível criar a pasta fiscal %1/arquivo/fiscal").arg(dados.path()));

    Contexto::Atual().pastaFiscal.clear();
    ConfigGravarStr(QStringLiteral("PASTA_FISCAL"), QString());
    qunsetenv("PAVREL_FISCAL_FOLDER");
    qunsetenv("XDG_DATA_HOME");
}

TEST(CodComMasc, MasksCnpjAndCpfLettersIncluded)
{
    const struct { const char *codigo, *mascarado; } casos[] = {
        {"11222333000181", "11.222.333/0001-81"}, {"12ABC345000199", "12.ABC.345/0001-99"},
        {"12345678901", "123.456.789-01"}, {"1234567890", "1234567890"}, {"", ""},
    };
    for (const auto &c : casos)
        EXPECT_EQ(CodComMasc(QLatin1String(c.codigo)), QLatin1String(c.mascarado)) << c.codigo;
}

} // namespace
