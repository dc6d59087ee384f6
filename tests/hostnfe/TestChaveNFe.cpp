#include "ChaveNFe.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

TEST(ChaveNFe, DigitoModulo11)
{
    const struct { const char *chave43; char digito; } casos[] = {
        {"3526111234567800019555001000001234109772059", '6'},
        {"3526111234567800019555001000001234109772051", '0'},   // remainder 0
        {"3526111234567800019555001000001234109772057", '0'},   // remainder 1
        {"3526111234567800019555001000001234109772056", '1'},   // remainder 10
        {"352611ZX9Y8W7V00013555001000001234109772050", '8'},   // letters of the alphanumeric CNPJ
    };
    for (const auto &c : casos) {
        const QString chave = QString::fromLatin1(c.chave43);
        EXPECT_EQ(ChaveNFe::Digito(chave), QLatin1Char(c.digito)) << c.chave43;
        EXPECT_TRUE(ChaveNFe::DigitoConfere(chave + QLatin1Char(c.digito))) << c.chave43;
        EXPECT_FALSE(ChaveNFe::DigitoConfere(chave + QLatin1Char(c.digito == '9' ? '1' : c.digito + 1))) << c.chave43;
    }
    EXPECT_FALSE(ChaveNFe::DigitoConfere(QStringLiteral("3526111234567800019555001000001234109772059")));
}

TEST(ChaveNFe, NomeXMLToNFEChave)
{
    const QString chave = QStringLiteral("35261112345678000195550010000012341097720596");
    const struct { const char *caso; QString conteudo; QString esperado; } casos[] = {
        {"prefixo NFe cai", QStringLiteral("<?xml version=\"1.0\"?>\n<NFe><infNFe versao=\"4.00\" Id=\"NFe%1\">").arg(chave), chave},
        {"aspas simples", QStringLiteral("<NFe><infNFe Id='NFe%1' versao='4.00'>").arg(chave), {}},
        {"Id fecha depois de 80", QStringLiteral("<infNFe versao=\"4.00\"        Id=\"NFe%1\">").arg(chave), {}},
        {"atributo longo antes do Id", QStringLiteral("<infNFe xmlns:extra=\"%1\" Id=\"NFe%2\">").arg(QString(60, u'x'), chave), {}},
        {"sem infNFe", QStringLiteral("<NFe><InfNFe Id=\"NFe%1\">").arg(chave), {}},
        {"letras da chave caem", QStringLiteral("<infNFe Id=\"NFe352611ZX9Y8W7V000135550010000012341097720508\">"),
         QStringLiteral("352611987000135550010000012341097720508")},
        {"quebra de linha dentro da etiqueta", QStringLiteral("<infNFe\r\nId=\"NFe%1\">").arg(chave), chave},
    };
    QTemporaryDir pasta;
    for (const auto &c : casos) {
        QFile f(pasta.filePath(QStringLiteral("nota.xml")));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(c.conteudo.toUtf8()) > 0);
        f.close();
        EXPECT_EQ(NomeXMLToNFEChave(f.fileName()), c.esperado) << c.caso;
    }
    EXPECT_EQ(NomeXMLToNFEChave(pasta.filePath(QStringLiteral("falta.xml"))) + NomeXMLToNFEChave(pasta.path()), QString());
}
