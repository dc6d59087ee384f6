#include "Money.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "TRepTotais.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace {

Money M(const char *texto) { return Money::parse(QString::fromLatin1(texto)).value(); }

// One item row by amount, as text so that nothing passes through double.
struct Item
{
    const char *custoTot = "0", *desconto = "0", *icmsSt = "0", *icms = "0", *fcp = "0", *fcpst = "0", *vipi = "0",
               *outras = "0", *frete = "0", *seguro = "0";
    QList<const char *> valores() const { return {custoTot, desconto, icmsSt, icms, fcp, fcpst, vipi, outras, frete, seguro}; }
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
        for (const char *v : i.valores())
            ds.Fields(f++).SetAsMoney(M(v));
        ds.Post();
    }
}

// Every amount in field order, then the total.
QString Valores(const TRepTotais &t)
{
    QStringList l;
    for (const Money &m : {t.CustoTot, t.Desconto, t.ICMSSub, t.ICMS, t.FCP, t.FCPST, t.IPI, t.Outras, t.Frete,
                           t.Seguro, t.Total})
        l << m.toString();
    return l.join(QLatin1Char(' '));
}

TEST(RepTotais, ListAndQuerySumAlikeAndTheTotalLeavesOwnICMSOut)
{
    // Per row the taxes and expenses are rounded to the cent (half to even) before they are
    // added; the product total, discount and ICMS ST are added as they are.
    const QList<Item> itens = {
        {"100.3333", "1.0001", "0.3333", "0.005", "0.015", "0.025", "2.005", "0.004", "1.115", "0.5"},
        {"50.3333", "0.0001", "0.3333", "0.005", "0.015", "0.025", "2.005", "0.004", "1.115", "0.5"},
        {.custoTot = "0.3334", .icmsSt = "0.3334", .icms = "0.006"},
    };
    TClientDataSet ds;
    Preencher(ds, itens);
    TRepTotais lista;
    lista.PegarDoDataSet(ds, true);
    // The same rows as compra_item_tmp names them, as a query hands them out.
    QVector<QVector<QVariant>> linhas;
    for (const Item &i : itens) {
        linhas.push_back({});
        for (const char *v : i.valores())
            linhas.back() << QString::fromLatin1(v);
    }
    TQ q({"CUSTO_TOT", "DESCONTO", "TRIB_ICMS_VICMSST", "TRIB_ICMS_VICMS", "TRIB_ICMS_VFCP", "TRIB_ICMS_VFCPST",
          "VIPI", "OUTRAS", "FRETE", "SEGURO"}, linhas);
    TRepTotais query;
    query.PegarDoDataSet(q, true);
    // 151 - 1.0002 + 1 + 0 + 2.24 + 1 + 0.04 + 0.04 = 154.3198 -> 154.32, plus IPI 4.
    const QString esperado = QStringLiteral("151 1.0002 1 0.01 0.04 0.04 4 0 2.24 1 158.32");
    EXPECT_EQ(Valores(lista), esperado);
    EXPECT_EQ(Valores(query), esperado);
}

TEST(RepTotais, SummingLeavesTheCursorIPIEntersTheTotalOnlyWhenAskedAndTheIniHasTwoPlaces)
{
    TClientDataSet ds;
    Preencher(ds, {{.custoTot = "1"}, {.custoTot = "10", .vipi = "1.5", .frete = "0.125"}, {.custoTot = "3"}});
    ds.SetRecNo(2);
    TRepTotais t;
    t.PegarDoDataSet(ds, false);
    EXPECT_EQ(Valores(t), QStringLiteral("14 0 0 0 0 0 1.5 0 0.12 0 14.12")) << "IPI summed, left out of the total";
    EXPECT_EQ(ds.RecNo(), 2);
    EXPECT_FALSE(ds.ControlsDisabled());
    t.PegarDoDataSet(ds, true);

    // One row at a time accumulates, and leaves the total (15.62 with the IPI) alone.
    t.PegarDoReg(ds);
    EXPECT_EQ(Valores(t), QStringLiteral("24 0 0 0 0 0 3 0 0.24 0 15.62"));

    // The INI text has two places, rounded half to even (0.125, 0.135), and a decimal comma.
    t.CustoTot = M("1234.5");
    t.Desconto = M("0.125");
    t.ICMSSub = M("0.135");
    t.Total = M("-3.2");
    EXPECT_EQ(t.GetAsStringIni(),
              QStringLiteral("CustoTot=1234,50\r\nDesconto=0,12\r\nICMS=0,00\r\nICMSSub=0,14\r\nFCP=0,00\r\n"
                             "FCPST=0,00\r\nIPI=3,00\r\nOutras=0,00\r\nFrete=0,24\r\nSeguro=0,00\r\nTotal=-3,20"));
    // Summing an empty list starts afresh.
    TClientDataSet vazio;
    Preencher(vazio, {});
    t.PegarDoDataSet(vazio, true);
    EXPECT_EQ(Valores(t), QStringLiteral("0 0 0 0 0 0 0 0 0 0 0"));
}

TEST(RepTotais, TheTableColumnWinsOverTheListColumnWhenARowHasBoth)
{
    TClientDataSet ds;
    for (const char *nome : {"custo_tot", "desconto", "icms_val", "TRIB_ICMS_VICMS", "icms_st_val", "trib_icms_vicmsst",
                             "trib_icms_vfcp", "trib_icms_vfcpst", "vipi", "outras", "frete", "seguro"})
        ds.AddField(QLatin1String(nome), TFieldType::Money);
    ds.Open();
    ds.Append();
    for (const auto &[campo, valor] : {std::pair{"icms_val", "99"}, {"trib_icms_vicms", "7"}, {"icms_st_val", "88"},
                                       {"trib_icms_vicmsst", "3"}})
        ds.FieldByName(QLatin1String(campo)).SetAsMoney(M(valor));
    ds.Post();
    TRepTotais t;
    t.PegarDoDataSet(ds, true);
    EXPECT_EQ(Valores(t), QStringLiteral("0 0 3 7 0 0 0 0 0 0 3"));
}

TEST(RepTotais, ProductTotalMustAgreeToTheCentAndTheRestWithinTwoCentsAllTogether)
{
    TRepTotais t;
    t.CustoTot = M("100");
    t.Desconto = t.ICMSSub = t.ICMS = t.IPI = t.Outras = t.FCP = t.FCPST = t.Total = M("5");
    const struct { const char *nome; std::function<bool(const TRepTotais &, Money)> teste; const char *valor; bool aceito; } casos[] = {
        {"product total 100.004 rounds to 100.00", &TRepTotais::CustoTotAceito, "100.004", true},
        {"product total 100.005 rounds half to even to 100.00", &TRepTotais::CustoTotAceito, "100.005", true},
        {"product total 100.015 rounds half to even to 100.02", &TRepTotais::CustoTotAceito, "100.015", false},
        {"product total one cent over", &TRepTotais::CustoTotAceito, "100.01", false},
        {"discount two cents over", &TRepTotais::DescontoAceito, "5.02", true}, {"discount two cents under", &TRepTotais::DescontoAceito, "4.98", true},
        {"discount three cents over", &TRepTotais::DescontoAceito, "5.03", false}, {"ICMS three cents", &TRepTotais::ICMSAceito, "4.97", false},
        {"ICMS ST 200 units away", &TRepTotais::ICMSSubAceito, "4.98", true}, {"ICMS ST 201 units away", &TRepTotais::ICMSSubAceito, "5.0201", false},
        {"IPI", &TRepTotais::IPIAceito, "5.03", false}, {"FCP", &TRepTotais::FCPAceito, "5.021", false},
        {"FCP ST", &TRepTotais::FCPSTAceito, "5.02", true}, {"total", &TRepTotais::TotalAceito, "5.0201", false},
    };
    for (const auto &c : casos)
        EXPECT_EQ(c.teste(t, M(c.valor)), c.aceito) << c.nome;

    // All nine must hold together: three cents off on any one argument refuses.
    const std::array<Money, 9> ok = {M("100"), M("5"), M("5"), M("5"), M("5"), M("5"), M("5"), M("5"), M("5")};
    const auto aceitos = [&t](const std::array<Money, 9> &v) { return t.ValoresAceitos(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]); };
    EXPECT_TRUE(aceitos(ok));
    for (int i = 0; i < 9; ++i) {
        std::array<Money, 9> v = ok;
        v[i] += M("0.03");
        EXPECT_FALSE(aceitos(v)) << "argument " << i;
    }
}

} // namespace
