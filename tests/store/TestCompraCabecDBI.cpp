#include "TCompraCabecDBI.h"
#include "TestDatabase.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <gtest/gtest.h>

namespace {

TCompraCabecDBI cabecCompleto()
{
    TCompraCabecDBI n;
    n.chave.emprCod = 1;
    n.chave.estacaoCod = 3;
    n.chave.compraCod = 77;
    n.destinEmprCod = 2;
    n.tipoCod = TipoDoc::Entrada;
    n.dtDoc = QDate(2026, 11, 20);
    n.dthSai = QDateTime(QDate(2026, 11, 21), QTime(14, 35));
    n.ndoc = 45871;
    n.serie = QStringLiteral("2");
    n.fornecCod = 1;
    n.totProds = Money::fromRaw(1000000);
    n.ipi = Money::fromRaw(50000);
    n.frete = Money::fromRaw(25000);
    n.outras = Money::fromRaw(1234);
    n.icms = Money::fromRaw(120000);
    n.icmsST = Money::fromRaw(30000);
    n.fcp = Money::fromRaw(2000);
    n.fcpst = Money::fromRaw(1000);
    n.desconto = Money::fromRaw(10000);
    n.tot = TCompraCabecDBI::Total(n.totProds, n.frete, n.outras, n.icmsST, n.fcp, n.fcpst, n.desconto, n.ipi, true);
    n.freteModalidade = 3;
    n.cfop = 1102;
    n.natOp = QStringLiteral("Compra p/ comercialização; D'Ávila");
    n.chavesRef = {QString(44, QLatin1Char('1')), QString(), QString(44, QLatin1Char('3')), QString(), QString()};
    n.transpFornecCod = 2;
    n.freteIcmsBCVal = Money::fromRaw(250000);
    n.freteIcmsPerc = Money::fromRaw(120000);
    n.freteIcmsRetVal = Money::fromRaw(30000);
    n.freteCfop = 5352;
    n.veiPlaca = QStringLiteral("ABC1D23");
    n.veiUF = QStringLiteral("SP");
    n.veiANTT = QStringLiteral("RNTRC 1'2");
    n.reboque1Placa = QStringLiteral("XYZ9K87");
    n.reboque1UF = QStringLiteral("PR");
    n.reboque1ANTT = QStringLiteral("R1");
    n.reboque2Placa = QStringLiteral("QWE1R23");
    n.reboque2UF = QStringLiteral("MG");
    n.reboque2ANTT = QStringLiteral("R2");
    n.volsQtd = 12;
    n.volsEspecie = QStringLiteral("CAIXA; PAPELÃO");
    n.volsMarca = QStringLiteral("MARCA'S");
    n.volsNum = QStringLiteral("1-12");
    n.pesoLiq = 120.5;
    n.pesoBruto = 130.25;
    return n;
}

class NotaCabec : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }
    TestDatabase db;
};

TEST_F(NotaCabec, InsertThenReadGivesBackEveryFieldAsTyped)
{
    const TCompraCabecDBI typed = cabecCompleto();
    ASSERT_EQ(db.exec(typed.SqlInsert(QStringLiteral("fisco 'a'"), QStringLiteral("contribuinte; b"))), QString());
    QString erro;
    const auto lida = TCompraCabecDBI::Ler(db.conexao(), {1, 3, 77}, true, &erro);
    ASSERT_TRUE(lida) << erro.toStdString();
    // Every field but the key, side by side, so a field lost either way shows by name.
    const auto campos = [](const TCompraCabecDBI &n) {
        QStringList l{QString::number(n.destinEmprCod), QString::number(n.tipoCod), n.dtDoc.toString(Qt::ISODate),
                      n.dthSai.toString(Qt::ISODate), QString::number(n.ndoc), n.serie, QString::number(n.fornecCod),
                      QString::number(n.freteModalidade), QString::number(n.cfop), n.natOp,
                      QString::number(n.transpFornecCod), QString::number(n.freteCfop), n.veiPlaca, n.veiUF,
                      n.veiANTT, n.reboque1Placa, n.reboque1UF, n.reboque1ANTT, n.reboque2Placa, n.reboque2UF,
                      n.reboque2ANTT, n.volsEspecie, n.volsMarca, n.volsNum, QString::number(n.volsQtd),
                      QString::number(n.pesoLiq), QString::number(n.pesoBruto)};
        for (const Money &m : {n.totProds, n.ipi, n.frete, n.outras, n.icms, n.icmsST, n.fcp, n.fcpst, n.desconto,
                               n.tot, n.freteIcmsBCVal, n.freteIcmsPerc, n.freteIcmsRetVal})
            l << QString::number(m.raw());
        return l + n.chavesRef;
    };
    EXPECT_EQ(campos(*lida), campos(typed));
    EXPECT_EQ(db.valor(QStringLiteral("select inf_adic_fisco from compra")), QStringLiteral("fisco 'a'"));
    EXPECT_EQ(db.valor(QStringLiteral("select baixado from compra")), QStringLiteral("N"));
}

TEST_F(NotaCabec, InsertListsOneColumnALineAndCommentsEveryValue)
{
    TCompraCabecDBI n = cabecCompleto();
    n.fornecCod = 0;
    const QString sql = n.SqlInsert(QString(), QString());
    const QStringList linhas = sql.split(QStringLiteral("\r\n"));
    ASSERT_GT(linhas.size(), 100);
    EXPECT_EQ(linhas.at(0), QStringLiteral("insert into compra ("));
    EXPECT_EQ(linhas.at(1), QStringLiteral("EMPR_COD,"));
    EXPECT_EQ(linhas.at(3), QStringLiteral("compra_COD,"));
    const int values = int(linhas.indexOf(QStringLiteral(") values (")));
    ASSERT_EQ(values, 50);
    EXPECT_EQ(linhas.at(values + 1), QStringLiteral("1 --empr_cod"));
    EXPECT_EQ(linhas.at(values + 2), QStringLiteral(",2 --DEST_EMPR_COD"));
    EXPECT_EQ(linhas.at(values + 8), QStringLiteral(",NULL --fornec_cod"));
    EXPECT_EQ(linhas.at(values + 9), QStringLiteral(",100 --tot prods"));
    EXPECT_EQ(linhas.last(), QStringLiteral(");"));
    ASSERT_EQ(db.exec(sql), QString());
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from compra where fornec_cod is null")), QStringLiteral("1"));
}

TEST_F(NotaCabec, UpdateChangesOnlyWhatItNames)
{
    const TCompraCabecDBI original = cabecCompleto();
    ASSERT_EQ(db.exec(original.SqlInsert(QStringLiteral("F"), QStringLiteral("C"))), QString());
    ASSERT_EQ(db.exec(QStringLiteral("update compra set baixado='S', arq_xml='<x/>'")), QString());
    TCompraCabecDBI alterada = original;
    alterada.natOp = QStringLiteral("Outra natureza");
    alterada.ndoc = 9;
    alterada.tipoCod = TipoDoc::NotaComplementar;
    ASSERT_EQ(db.exec(alterada.SqlUpdate()), QString());
    EXPECT_EQ(db.valor(QStringLiteral("select nat_op_str || '/' || ndoc || '/' || tipo_cod from compra")),
              QStringLiteral("Outra natureza/9/'"));
    EXPECT_EQ(db.valor(QStringLiteral("select inf_adic_fisco || inf_adic_contribuinte || baixado || arq_xml || "
                                      "empr_cod || estacao_cod || compra_cod from compra")),
              QStringLiteral("FCS<x/>1377"));
}

struct UnicoCase
{
    const char *nome;
    const char *tipoExistente;      // nullptr: a note without type
    bool recusa;
};

class NumeroUnico : public NotaCabec, public ::testing::WithParamInterface<UnicoCase>
{
};

TEST_P(NumeroUnico, ComparesWithNotesOfTheSameTypeOrOfNone)
{
    const UnicoCase c = GetParam();
    const QString tipo = c.tipoExistente ? QuotedStr(QString::fromLatin1(c.tipoExistente)) : QStringLiteral("NULL");
    ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, ndoc, serie, "
                                     "fornec_cod) values (1, 1, 5, %1, 45871, '2', 1)").arg(tipo)), QString());
    TCompraCabecDBI nova = cabecCompleto();
    nova.chave.compraCod = 0;
    EXPECT_EQ(db.conexao().ValorInt(nova.SqlNumeroUnico()) > 0, c.recusa);
    // The note itself, when altered, is no duplicate of itself.
    nova.chave.compraCod = 5;
    nova.chave.estacaoCod = 1;
    EXPECT_EQ(db.conexao().ValorInt(nova.SqlNumeroUnico()), 0);
}

INSTANTIATE_TEST_SUITE_P(, NumeroUnico, ::testing::Values(
    UnicoCase{"same_type_refused", "\"", true},
    UnicoCase{"no_type_refused", nullptr, true},
    UnicoCase{"other_type_accepted", "#", false}),
    [](const auto &caso) { return std::string(caso.param.nome); });

TEST(NotaCabecTotal, AddsIPIOnlyWhenTheStoreAddsIt)
{
    const Money cem = Money::fromInt(100);
    const Money dez = Money::fromInt(10);
    const Money um = Money::fromInt(1);
    EXPECT_EQ(TCompraCabecDBI::Total(cem, dez, um, um, um, um, dez, dez, true), Money::fromInt(114));
    EXPECT_EQ(TCompraCabecDBI::Total(cem, dez, um, um, um, um, dez, dez, false), Money::fromInt(104));
    // Rounded to the cent, halves to even.
    EXPECT_EQ(TCompraCabecDBI::Total(Money::fromRaw(1000050), Money(), Money(), Money(), Money(), Money(), Money(), Money(), false),
              Money::fromRaw(1000000));
}

} // namespace
