#include "TCompraCabecDBI.h"
#include "TestDatabase.h"
#include "UTipoDoc.h"

#include <gtest/gtest.h>

namespace {

// Every field set, with quotes and semicolons where text goes.
TCompraCabecDBI cabecCompleto()
{
    const auto m = Money::fromRaw;
    TCompraCabecDBI n{.chave = {.emprCod = 1, .estacaoCod = 3, .compraCod = 77}, .destinEmprCod = 2,
        .tipoCod = TipoDoc::Entrada, .dtDoc = QDate(2026, 11, 20), .dthSai = QDateTime(QDate(2026, 11, 21), QTime(14, 35)),
        .ndoc = 45871, .serie = "2", .fornecCod = 1, .fornecNome = {}, .totProds = m(1000000), .ipi = m(50000), .frete = m(25000),
        .outras = m(1234), .icms = m(120000), .icmsST = m(30000), .fcp = m(2000), .fcpst = m(1000), .desconto = m(10000), .tot = {},
        .freteModalidade = 3, .cfop = 1102, .natOp = "Compra p/ comercialização; D'Ávila",
        .chavesRef = {QString(44, '1'), QString(), QString(44, '3'), QString(), QString()}, .transpFornecCod = 2,
        .freteIcmsBCVal = m(250000), .freteIcmsPerc = m(120000), .freteIcmsRetVal = m(30000), .freteCfop = 5352,
        .veiPlaca = "ABC1D23", .veiUF = "SP", .veiANTT = "RNTRC 1'2", .reboque1Placa = "XYZ9K87", .reboque1UF = "PR",
        .reboque1ANTT = "R1", .reboque2Placa = "QWE1R23", .reboque2UF = "MG", .reboque2ANTT = "R2", .volsQtd = 12,
        .volsEspecie = "CAIXA; PAPELÃO", .volsMarca = "MARCA'S", .volsNum = "1-12", .pesoLiq = 120.5, .pesoBruto = 130.25,
        .baixado = false, .cancelado = false};
    n.tot = TCompraCabecDBI::Total(n.totProds, n.frete, n.outras, n.icmsST, n.fcp, n.fcpst, n.desconto, n.ipi, true);
    return n;
}

class NotaCabec : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }
    TestDatabase db;
};

TEST_F(NotaCabec, InsertReadsBackAsTypedUpdateChangesOnlyWhatItNamesAndTheNumberIsUniquePerType)
{
    const TCompraCabecDBI typed = cabecCompleto();
    ASSERT_EQ(db.exec(typed.SqlInsert(QStringLiteral("fisco 'a'"), QStringLiteral("contribuinte; b"))), QString());
    QString erro;
    const auto lida = TCompraCabecDBI::Ler(db.conexao(), {1, 3, 77}, true, &erro);
    ASSERT_TRUE(lida) << erro.toStdString();
    // Every field but the key, side by side, so a field lost either way shows by name.
    const auto campos = [](const TCompraCabecDBI &n) {
        QStringList l{n.dtDoc.toString(Qt::ISODate), n.dthSai.toString(Qt::ISODate), n.serie, n.natOp, n.veiPlaca, n.veiUF,
                      n.veiANTT, n.reboque1Placa, n.reboque1UF, n.reboque1ANTT, n.reboque2Placa, n.reboque2UF,
                      n.reboque2ANTT, n.volsEspecie, n.volsMarca, n.volsNum};
        for (double d : {double(n.destinEmprCod), double(n.tipoCod), double(n.ndoc), double(n.fornecCod),
                         double(n.freteModalidade), double(n.cfop), double(n.transpFornecCod), double(n.freteCfop),
                         n.volsQtd, n.pesoLiq, n.pesoBruto})
            l << QString::number(d);
        for (const Money &m : {n.totProds, n.ipi, n.frete, n.outras, n.icms, n.icmsST, n.fcp, n.fcpst, n.desconto,
                               n.tot, n.freteIcmsBCVal, n.freteIcmsPerc, n.freteIcmsRetVal})
            l << QString::number(m.raw());
        return l + n.chavesRef;
    };
    EXPECT_EQ(campos(*lida), campos(typed));
    EXPECT_EQ(db.valor(QStringLiteral("select inf_adic_fisco || '|' || baixado from compra")), QStringLiteral("fisco 'a'|N"));

    // The insert lists one column a line and comments every value.
    ASSERT_EQ(db.exec(QStringLiteral("delete from compra")), QString());
    TCompraCabecDBI n = cabecCompleto();
    n.fornecCod = 0;
    const QString sql = n.SqlInsert(QString(), QString());
    const QStringList linhas = sql.split(QStringLiteral("\r\n"));
    const int values = int(linhas.indexOf(QStringLiteral(") values (")));
    ASSERT_TRUE(values == 50 && linhas.size() > 100) << sql.toStdString();
    EXPECT_EQ((QStringList{linhas[0], linhas[1], linhas[3], linhas[values + 1], linhas[values + 2], linhas[values + 8],
                           linhas[values + 9], linhas.last()}),
              (QStringList{"insert into compra (", "EMPR_COD,", "compra_COD,", "1 --empr_cod", ",2 --DEST_EMPR_COD",
                           ",NULL --fornec_cod", ",100 --tot prods", ");"}));
    ASSERT_EQ(db.exec(sql), QString());
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from compra where fornec_cod is null")), QStringLiteral("1"));

    ASSERT_EQ(db.exec(QStringLiteral("delete from compra")), QString());
    TCompraCabecDBI alterada = cabecCompleto();
    ASSERT_EQ(db.exec(alterada.SqlInsert(QStringLiteral("F"), QStringLiteral("C"))), QString());
    ASSERT_EQ(db.exec(QStringLiteral("update compra set baixado='S', arq_xml='<x/>'")), QString());
    alterada.natOp = QStringLiteral("Outra natureza");
    alterada.ndoc = 9;
    alterada.tipoCod = TipoDoc::NotaComplementar;
    ASSERT_EQ(db.exec(alterada.SqlUpdate()), QString());
    EXPECT_EQ(db.valor(QStringLiteral("select nat_op_str || '/' || ndoc || '/' || tipo_cod || '/' || inf_adic_fisco || "
                                      "inf_adic_contribuinte || baixado || arq_xml || empr_cod || estacao_cod || compra_cod "
                                      "from compra")),
              QStringLiteral("Outra natureza/9/'/FCS<x/>1377"));

    // Same supplier, number and series: a duplicate when of the same type or of none.
    const std::pair<const char *, bool> casos[] = {{"'\"'", true}, {"NULL", true}, {"'#'", false}};
    for (const auto &[tipo, recusa] : casos) {
        SCOPED_TRACE(tipo);
        ASSERT_EQ(db.exec(QStringLiteral("delete from compra")), QString());
        ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, ndoc, serie, "
                                         "fornec_cod) values (1, 1, 5, %1, 45871, '2', 1)").arg(QLatin1String(tipo))), QString());
        TCompraCabecDBI nova = cabecCompleto();
        nova.chave.compraCod = 0;
        EXPECT_EQ(db.conexao().ValorInt(nova.SqlNumeroUnico()) > 0, recusa);
        nova.chave = {.emprCod = 1, .estacaoCod = 1, .compraCod = 5};
        EXPECT_EQ(db.conexao().ValorInt(nova.SqlNumeroUnico()), 0) << "the note itself, when altered, is no duplicate";
    }
}

TEST(NotaCabecTotal, AddsIPIOnlyWhenTheStoreAddsItAndRoundsHalfToEven)
{
    const Money cem = Money::fromInt(100), dez = Money::fromInt(10), um = Money::fromInt(1), z;
    EXPECT_EQ(TCompraCabecDBI::Total(cem, dez, um, um, um, um, dez, dez, true), Money::fromInt(114));
    EXPECT_EQ(TCompraCabecDBI::Total(cem, dez, um, um, um, um, dez, dez, false), Money::fromInt(104));
    EXPECT_EQ(TCompraCabecDBI::Total(Money::fromRaw(1000050), z, z, z, z, z, z, z, false), Money::fromRaw(1000000));
}

} // namespace
