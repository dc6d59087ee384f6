#include "Money.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "TRepTotais.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>

namespace {

Money M(const char *texto)
{
    return Money::parse(QString::fromLatin1(texto)).value();
}

// One item row by amount, as text so that nothing passes through double.
struct Item
{
    const char *custoTot = "0";
    const char *desconto = "0";
    const char *icmsSt = "0";
    const char *icms = "0";
    const char *fcp = "0";
    const char *fcpst = "0";
    const char *vipi = "0";
    const char *outras = "0";
    const char *frete = "0";
    const char *seguro = "0";
};

// The item list's own column names (ICMS_VAL, ICMS_st_VAL, mixed case).
void Preencher(TClientDataSet &ds, const QList<Item> &itens)
{
    for (const char *nome : {"CUSTO_TOT", "DESCONTO", "ICMS_st_VAL", "ICMS_VAL", "TRIB_icms_vFCP",
                             "TRIB_icms_vFCPST", "vipi", "outras", "frete", "seguro"})
        ds.AddField(QLatin1String(nome), TFieldType::Money);
    ds.Open();
    for (const Item &i : itens) {
        ds.Append();
        int f = 0;
        for (const char *v : {i.custoTot, i.desconto, i.icmsSt, i.icms, i.fcp, i.fcpst, i.vipi, i.outras,
                              i.frete, i.seguro})
            ds.Fields(f++).SetAsMoney(M(v));
        ds.Post();
    }
}

// The same rows as compra_item_tmp names them, as a query hands them out.
TQ Query(const QList<Item> &itens)
{
    QVector<QVector<QVariant>> linhas;
    for (const Item &i : itens)
        linhas.push_back({QString::fromLatin1(i.custoTot), QString::fromLatin1(i.desconto),
                          QString::fromLatin1(i.icmsSt), QString::fromLatin1(i.icms), QString::fromLatin1(i.fcp),
                          QString::fromLatin1(i.fcpst), QString::fromLatin1(i.vipi), QString::fromLatin1(i.outras),
                          QString::fromLatin1(i.frete), QString::fromLatin1(i.seguro)});
    return TQ({"CUSTO_TOT", "DESCONTO", "TRIB_ICMS_VICMSST", "TRIB_ICMS_VICMS", "TRIB_ICMS_VFCP",
               "TRIB_ICMS_VFCPST", "VIPI", "OUTRAS", "FRETE", "SEGURO"},
              linhas);
}

TRepTotais Somar(const QList<Item> &itens, bool somarIPI = true)
{
    TClientDataSet ds;
    Preencher(ds, itens);
    TRepTotais t;
    t.PegarDoDataSet(ds, somarIPI);
    return t;
}

TEST(RepTotais, ListAndQuerySumAlikeAndTheTotalLeavesOwnICMSOut)
{
    // Per row the taxes and expenses are rounded to the cent before they are added; the
    // product total, discount and ICMS ST are added as they are.
    const QList<Item> itens = {
        {.custoTot = "100.3333", .desconto = "1.0001", .icmsSt = "0.3333", .icms = "0.005", .fcp = "0.015",
         .fcpst = "0.025", .vipi = "2.005", .outras = "0.004", .frete = "1.115", .seguro = "0.5"},
        {.custoTot = "50.3333", .desconto = "0.0001", .icmsSt = "0.3333", .icms = "0.005", .fcp = "0.015",
         .fcpst = "0.025", .vipi = "2.005", .outras = "0.004", .frete = "1.115", .seguro = "0.5"},
        {.custoTot = "0.3334", .icmsSt = "0.3334", .icms = "0.006"},
    };
    TClientDataSet ds;
    Preencher(ds, itens);
    TRepTotais lista;
    lista.PegarDoDataSet(ds, true);
    TQ q = Query(itens);
    TRepTotais query;
    query.PegarDoDataSet(q, true);

    for (const TRepTotais *t : {&lista, &query}) {
        EXPECT_EQ(t->CustoTot, M("151"));
        EXPECT_EQ(t->Desconto, M("1.0002"));
        EXPECT_EQ(t->ICMSSub, M("1"));
        EXPECT_EQ(t->ICMS, M("0.01")) << "0.005 rounds half to even to 0.00, 0.006 to 0.01";
        EXPECT_EQ(t->FCP, M("0.04"));
        EXPECT_EQ(t->FCPST, M("0.04"));
        EXPECT_EQ(t->IPI, M("4"));
        EXPECT_EQ(t->Outras, M("0"));
        EXPECT_EQ(t->Frete, M("2.24"));
        EXPECT_EQ(t->Seguro, M("1"));
        // 151 - 1.0002 + 1 + 0 + 2.24 + 1 + 0.04 + 0.04 = 154.3198 -> 154.32, plus IPI 4.
        EXPECT_EQ(t->Total, M("158.32"));
    }
}

TEST(RepTotais, IPIEntersTheTotalOnlyWhenAsked)
{
    const QList<Item> itens = {{.custoTot = "10", .vipi = "1.5"}};
    EXPECT_EQ(Somar(itens, true).Total, M("11.5"));
    const TRepTotais sem = Somar(itens, false);
    EXPECT_EQ(sem.Total, M("10"));
    EXPECT_EQ(sem.IPI, M("1.5")) << "the IPI is still summed, only left out of the total";
}

TEST(RepTotais, TheTableColumnWinsOverTheListColumnWhenARowHasBoth)
{
    TClientDataSet ds;
    for (const char *nome : {"custo_tot", "desconto", "icms_val", "TRIB_ICMS_VICMS", "icms_st_val",
                             "trib_icms_vicmsst", "trib_icms_vfcp", "trib_icms_vfcpst", "vipi", "outras", "frete",
                             "seguro"})
        ds.AddField(QLatin1String(nome), TFieldType::Money);
    ds.Open();
    ds.Append();
    ds.FieldByName(QStringLiteral("icms_val")).SetAsMoney(M("99"));
    ds.FieldByName(QStringLiteral("trib_icms_vicms")).SetAsMoney(M("7"));
    ds.FieldByName(QStringLiteral("icms_st_val")).SetAsMoney(M("88"));
    ds.FieldByName(QStringLiteral("trib_icms_vicmsst")).SetAsMoney(M("3"));
    ds.Post();
    TRepTotais t;
    t.PegarDoDataSet(ds, true);
    EXPECT_EQ(t.ICMS, M("7"));
    EXPECT_EQ(t.ICMSSub, M("3"));
}

TEST(RepTotais, AnEmptyListIsAllZerosAndSummingAgainStartsAfresh)
{
    TRepTotais t;
    t.CustoTot = M("5");
    t.Total = M("5");
    TClientDataSet vazio;
    Preencher(vazio, {});
    t.PegarDoDataSet(vazio, true);
    EXPECT_EQ(t.GetAsStringIni(),
              QStringLiteral("CustoTot=0,00\r\nDesconto=0,00\r\nICMS=0,00\r\nICMSSub=0,00\r\nFCP=0,00\r\nFCPST=0,00\r\n"
                             "IPI=0,00\r\nOutras=0,00\r\nFrete=0,00\r\nSeguro=0,00\r\nTotal=0,00"));
}

TEST(RepTotais, SummingAWholeListLeavesItsCursorAndGridAsTheyWere)
{
    TClientDataSet ds;
    Preencher(ds, {{.custoTot = "1"}, {.custoTot = "10", .frete = "0.125"}, {.custoTot = "3"}});
    ds.SetRecNo(2);
    TRepTotais t;
    t.PegarDoDataSet(ds, true);
    EXPECT_EQ(t.CustoTot, M("14"));
    EXPECT_EQ(ds.RecNo(), 2);
    EXPECT_FALSE(ds.ControlsDisabled());

    // One row at a time accumulates, and leaves the total alone.
    t.PegarDoReg(ds);
    EXPECT_EQ(t.CustoTot, M("24"));
    EXPECT_EQ(t.Frete, M("0.24"));
    EXPECT_EQ(t.Total, M("14.12"));
}

TEST(RepTotais, ProductTotalMustAgreeToTheCentAndTheRestWithinTwoCents)
{
    TRepTotais t;
    t.CustoTot = M("100");
    t.Desconto = M("5");
    t.ICMSSub = M("5");
    t.ICMS = M("5");
    t.IPI = M("5");
    t.Outras = M("5");
    t.FCP = M("5");
    t.FCPST = M("5");
    t.Total = M("5");

    struct Caso
    {
        const char *nome;
        std::function<bool(const TRepTotais &, Money)> teste;
        const char *valor;
        bool aceito;
    } casos[] = {
        {"product total 100.004 rounds to 100.00", &TRepTotais::CustoTotAceito, "100.004", true},
        {"product total 100.005 rounds half to even to 100.00", &TRepTotais::CustoTotAceito, "100.005", true},
        {"product total 100.015 rounds half to even to 100.02", &TRepTotais::CustoTotAceito, "100.015", false},
        {"product total one cent over", &TRepTotais::CustoTotAceito, "100.01", false},
        {"discount two cents over", &TRepTotais::DescontoAceito, "5.02", true},
        {"discount two cents under", &TRepTotais::DescontoAceito, "4.98", true},
        {"discount three cents over", &TRepTotais::DescontoAceito, "5.03", false},
        {"ICMS ST 200 units away", &TRepTotais::ICMSSubAceito, "4.98", true},
        {"ICMS ST 201 units away", &TRepTotais::ICMSSubAceito, "5.0201", false},
        {"ICMS three cents", &TRepTotais::ICMSAceito, "4.97", false},
        {"IPI", &TRepTotais::IPIAceito, "5.03", false},
        {"FCP", &TRepTotais::FCPAceito, "5.021", false},
        {"FCP ST", &TRepTotais::FCPSTAceito, "5.02", true},
        {"total", &TRepTotais::TotalAceito, "5.0201", false},
    };
    for (const Caso &c : casos)
        EXPECT_EQ(c.teste(t, M(c.valor)), c.aceito) << c.nome;
}

TEST(RepTotais, AllNineMustHoldTogether)
{
    TRepTotais t;
    t.CustoTot = M("100");
    t.Total = M("110");
    const Money ok[9] = {M("100"), Money(), Money(), Money(), Money(), Money(), Money(), Money(), M("110")};
    auto aceitos = [&t](const Money (&v)[9]) {
        return t.ValoresAceitos(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]);
    };
    EXPECT_TRUE(aceitos(ok));
    for (int i = 0; i < 9; ++i) {
        Money v[9];
        std::copy(std::begin(ok), std::end(ok), v);
        v[i] += M("0.03");
        EXPECT_FALSE(aceitos(v)) << "argument " << i;
    }
}

TEST(RepTotais, TheIniTextWritesMoneyWithADecimalCommaAndTwoPlaces)
{
    TRepTotais t;
    t.CustoTot = M("1234.5");
    t.Desconto = M("0.125");    // half to even: 0.12
    t.ICMSSub = M("0.135");     // half to even: 0.14
    t.Total = M("-3.2");
    EXPECT_EQ(t.GetAsStringIni(),
              QStringLiteral("CustoTot=1234,50\r\nDesconto=0,12\r\nICMS=0,00\r\nICMSSub=0,14\r\nFCP=0,00\r\n"
                             "FCPST=0,00\r\nIPI=0,00\r\nOutras=0,00\r\nFrete=0,00\r\nSeguro=0,00\r\nTotal=-3,20"));
}

} // namespace
