#include "UTipoDoc.h"

#include <gtest/gtest.h>

#include <QSet>

using namespace TipoDoc;

namespace {

struct Linha { int indice, codigo; char caractere; const char *texto, *nomeCurto; };

// The combo order: 41 comes before 39, and code 40 is not used.
constexpr Linha Tipos[] = {
    {0, 34, '"', "ENTRADA", "ENTRADA"}, {1, 35, '#', "DEVOLUCAO", "DEVOLUCAO"}, {2, 36, '$', "SIMPLES REMESSA", "SIMPLES REMESSA"},
    {3, 37, '%', "PRODUCAO", "PRODUCAO"}, {4, 38, '&', "RETORNO DE LOCACAO", "RETORNO"},
    {5, 41, ')', "RETORNO DE COMODATO", "RETORNO"}, {6, 39, '\'', "NOTA COMPLEMETAR", "NOTA COMPLEMENTAR"},
};

TEST(TipoDoc, IndexCodeCharacterAndTextsConvertBothWays)
{
    ASSERT_EQ(Tabela().size(), std::size(Tipos));
    ASSERT_EQ(TextosCombo().size(), std::size(Tipos));
    for (const Linha &l : Tipos) {
        SCOPED_TRACE(l.texto);
        EXPECT_EQ(CodigoDoIndice(l.indice), l.codigo);
        EXPECT_EQ(IndiceDoCodigo(l.codigo), l.indice);
        EXPECT_EQ(CharDoCodigo(l.codigo), QLatin1Char(l.caractere));
        EXPECT_EQ(CodigoDoChar(QString(QLatin1Char(l.caractere))), l.codigo);
        EXPECT_EQ(TextosCombo().at(l.indice), QLatin1String(l.texto));
        EXPECT_EQ(RepTipoDocToStr(l.codigo), QLatin1String(l.texto));
        ASSERT_NE(PorCodigo(l.codigo), nullptr);
        EXPECT_EQ(PorCodigo(l.codigo), &PorIndice(l.indice));
        EXPECT_STREQ(PorIndice(l.indice).nomeCurto, l.nomeCurto);
    }
}

TEST(TipoDoc, OutsideTheTable)
{
    for (int indice : {-1, 7, 100})
        EXPECT_EQ(CodigoDoIndice(indice), Entrada) << "no selection is ENTRADA: " << indice;
    for (int codigo : {0, 33, 40, 42, 90}) {
        EXPECT_EQ(IndiceDoCodigo(codigo), -1) << codigo;
        EXPECT_EQ(PorCodigo(codigo), nullptr) << codigo;
    }
    EXPECT_EQ(RepTipoDocToStr(40), "[40]");
}

TEST(TipoDoc, AnEmptyStoredTypeIsAPurchaseEntry)
{
    // A CHAR(1) column in UTF8 comes back padded with blanks.
    for (const QString &lido : {QString(), QStringLiteral(""), QStringLiteral(" "), QStringLiteral("    ")})
        EXPECT_EQ(CodigoDoChar(lido), Entrada) << "[" << lido.toStdString() << "]";
    EXPECT_EQ(CodigoDoChar(QStringLiteral("%   ")), Producao);
    EXPECT_EQ(CodigoDoChar(QStringLiteral("'   ")), NotaComplementar);
}

// For each rule, the codes it applies to.
TEST(TipoDoc, RulesApplyToTheirTypes)
{
    using Regra = bool TTipoDoc::*;
    const QSet<int> todos = {34, 35, 36, 37, 38, 39, 41};
    const struct { const char *nome; Regra regra; QSet<int> codigos; } regras[] = {
        {"supplier required", &TTipoDoc::exigeFornecedor, todos - QSet<int>{39}},
        {"item NCM required", &TTipoDoc::exigeNCMItem, todos - QSet<int>{34, 37}},
        {"package quantities required", &TTipoDoc::exigeEmbQtd, todos - QSet<int>{39}},
        {"number typed by the user", &TTipoDoc::numeroDigitado, {34}},
        {"totals checked before posting", &TTipoDoc::conferirTotaisNaBaixa, todos - QSet<int>{39}},
        {"a zero total may be posted", &TTipoDoc::aceitaValorZerado, {37, 39}},
    };
    for (const auto &r : regras)
        for (const TTipoDoc &t : Tabela())
            EXPECT_EQ(t.*(r.regra), r.codigos.contains(t.codigo)) << r.nome << ", type " << t.codigo;
}

} // namespace
