#include "RegistroSql.h"
#include "Money.h"
#include "TConexaoSQL.h"
#include "TRepF_CalculePreco.h"
#include "TestDatabase.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

Money M(const char *texto) { return *Money::parse(QString::fromLatin1(texto)); }

std::string Txt(std::optional<Money> v) { return v ? v->toString().toStdString() : std::string("-"); }

using Mudanca = void (*)(TCalculePrecoEntrada &);

// The worked purchase: 100,00 of goods, 10,00 off, 5,555 of other expenses, 3 units, margin 30.
TCalculePrecoEntrada Compra(Mudanca mudar = [](TCalculePrecoEntrada &) {})
{
    TCalculePrecoEntrada e;
    e.margem = M("30");
    e.custoTot = M("100");
    e.desconto = M("10");
    e.outras = M("5.555");
    e.qtdComprada = 3;
    e.percTabelas = {M("10"), M("-5")};
    e.gravarCusto = true;
    mudar(e);
    return e;
}

// Cost 100 for one unit, no margin: the unit cost shows what the taxes did to the cost.
TCalculePrecoEntrada ComImpostos(int tipoIndice, Mudanca mudar = [](TCalculePrecoEntrada &) {})
{
    TCalculePrecoEntrada e;
    e.custoTot = M("100");
    e.qtdComprada = 1;
    e.vICMS = M("7");
    e.vIPI = M("5");
    e.tipoIndice = tipoIndice;
    mudar(e);
    return e;
}

// "total cost | unit cost | price | further prices", "-" for a field left as it is.
std::string Descrever(const TCalculePrecoSaida &s)
{
    if (!s.calculado)
        return "nothing";
    QStringList tabelas;
    for (const Money &p : s.precosTabelas)
        tabelas << p.toString();
    return QStringLiteral("%1 | %2 | %3 | %4")
        .arg(s.custoTot ? s.custoTot->toString() : QStringLiteral("-"),
             s.custoUnit ? s.custoUnit->toString() : QStringLiteral("-"), s.preco.toString(), tabelas.join(u' '))
        .toStdString();
}

TEST(CalculoPreco, GivesCostsAndPrices)
{
    const struct { const char *nome; TCalculePrecoEntrada entrada; const char *esperado; } casos[] = {
        {"worked_purchase", Compra(), "95.55 | 31.85 | 41.4 | 45.54 39.33"},
        {"no_write_back_leaves_total_cost", Compra([](auto &e) { e.gravarCusto = false; }), "- | 31.85 | 41.4 | 45.54 39.33"},
        {"unit_cost_field_with_focus_keeps_typed_value", Compra([](auto &e) { e.custoUnitComFoco = true; }), "95.55 | - | 41.4 | 45.54 39.33"},
        {"margin_zero_gives_no_price", Compra([](auto &e) { e.margem = {}; }), "95.55 | 31.85 | 0 | 0 0"},
        {"quantity_below_a_thousandth", Compra([](auto &e) { e.qtdComprada = 0.0009; }), "95.55 | 0 | 0 | 0 0"},
        {"quantity_of_one_thousandth", Compra([](auto &e) { e.qtdComprada = 0.001; }),
         "95.55 | 95550 | 124215 | 136636.5 118004.25"},
        {"costs_cut_to_cents_not_rounded",
         Compra([](auto &e) { e.custoTot = M("100.0099"); e.desconto = M("10.0049"); e.outras = {}; }),
         "90 | 30 | 39 | 42.9 37.05"},
        {"price_cut_to_cents_not_rounded", Compra([](auto &e) { e.margem = M("35"); }), "95.55 | 31.85 | 42.99 | 47.28 40.85"},
        {"production_without_demanded_cost", Compra([](auto &e) { e.tipoIndice = 3; e.producCustoExige = false; }), "nothing"},
        {"production_with_demanded_cost", ComImpostos(3, [](auto &e) { e.margem = M("10"); }), "- | 112 | 123.2 | "},
        // Taxes: cost 100, ICMS 7, IPI 5, one unit; the unit cost is the cost.
        {"entry_ignores_st_and_ipi_flag", ComImpostos(0, [](auto &e) { e.vBCST = M("50"); }), "- | 100 | 0 | "},
        {"return_adds_ipi_but_not_icms", ComImpostos(1), "- | 105 | 0 | "},
        {"return_without_ipi_flag_adds_nothing", ComImpostos(1, [](auto &e) { e.ipiSomar = false; }), "- | 100 | 0 | "},
        {"simple_shipment_adds_icms", ComImpostos(2), "- | 112 | 0 | "},
        {"st_base_itself_replaces_icms", ComImpostos(2, [](auto &e) { e.vBCST = M("50"); e.ipiSomar = false; }), "- | 150 | 0 | "},
        {"st_base_on_a_return", ComImpostos(1, [](auto &e) { e.vBCST = M("0.01"); e.ipiSomar = false; }), "- | 100.01 | 0 | "},
        {"st_base_below_a_cent_is_none", ComImpostos(2, [](auto &e) { e.vBCST = M("0.0099"); e.ipiSomar = false; }), "- | 107 | 0 | "},
    };
    for (const auto &c : casos)
        EXPECT_EQ(Descrever(TRepF_CalculePreco::Calcular(c.entrada)), c.esperado) << c.nome;
}

// The entry modes come from the database on every calculation of an entry note; other types and a
// skipped production send nothing.
TEST(ModosEntrada, AreReadAfreshAndAppliedToEntriesOnly)
{
    TestDatabase db;
    ASSERT_TRUE(db.ok()) << db.erro().toStdString();
    TConexaoSQL conexao(db.banco());
    // nullptr: no row. Cost 100, ICMS 7, IPI 5.
    const struct { const char *nome, *icms, *ipi, *custoUnit; } casos[] = {
        {"no_rows", nullptr, nullptr, "100"}, {"icms_1_adds", "1", nullptr, "107"}, {"icms_2_deducts", "2", "", "93"},
        {"ipi_1_adds", nullptr, "1", "105"}, {"ipi_2_deducts_with_blanks", "0", " 2 ", "95"},
        {"other_values_do_nothing", "3", "S", "100"}, {"both_add", "1", "1", "112"},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nome);
        ASSERT_EQ(db.exec(QStringLiteral("delete from config where chave starting with 'EST_CUS_'")), QString());
        for (const auto &[chave, valor] : {std::pair{"ICMS", c.icms}, std::pair{"IPI", c.ipi}}) {
            if (valor) {
                ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('EST_CUS_%1_MODO', '%2')")
                                      .arg(QLatin1String(chave), QLatin1String(valor))), QString());
            }
        }
        RegistroSql registro;
        EXPECT_EQ(Txt(TRepF_CalculePreco::Calcule(ComImpostos(0), conexao).custoUnit), c.custoUnit);
        EXPECT_EQ(RegistroSql::Sql(), (QStringList{"select valor from config where chave='EST_CUS_ICMS_MODO'",
                                                   "select valor from config where chave='EST_CUS_IPI_MODO'"}));
        EXPECT_FALSE(conexao.Conectado());
    }

    // Both modes add now: a return ignores them (no ICMS, the IPI through REP_IPI_SOMAR).
    RegistroSql registro;
    EXPECT_EQ(Txt(TRepF_CalculePreco::Calcule(ComImpostos(1), conexao).custoUnit), "105");
    const auto producaoSemCusto = ComImpostos(3, [](auto &e) { e.producCustoExige = false; });
    EXPECT_FALSE(TRepF_CalculePreco::Calcule(producaoSemCusto, conexao).calculado);
    EXPECT_TRUE(RegistroSql::Sql().isEmpty()) << RegistroSql::Sql().join('\n').toStdString();
}

// Quantities are cut, not rounded, to 4 decimals; the unit cost needs a quantity at 4 decimals.
TEST(CalculeQtdECusto, WorkAtFourDecimals)
{
    EXPECT_EQ(TRepF_CalculePreco::CalculeQtd(1.115, 1.111), 1.2387);   // rounding would give 1,2388
    EXPECT_EQ(TRepF_CalculePreco::CalculeQtd(0.1, 0.3), 0.03);          // 0.030000000000000002 in binary
    const struct { double qtd; const char *unit; } casos[] = {
        {3, "30"},
        {0, "-"},              // no division by zero: the column stays as it was
        {0.00005, "-"},        // the half rounds to the even 0
        {0.00015, "450000"},   // the half rounds to the even 0,0002
    };
    for (const auto &c : casos) {
        const TCustoItem r = TRepF_CalculePreco::CalculeCusto(M("100"), M("10"), c.qtd);
        EXPECT_EQ(r.custo, M("90"));
        EXPECT_EQ(Txt(r.custoUnit), c.unit) << "quantity " << c.qtd;
    }
}

} // namespace
