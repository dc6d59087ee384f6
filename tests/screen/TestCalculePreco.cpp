#include "RegistroSql.h"
#include "Money.h"
#include "TConexaoSQL.h"
#include "TRepF_CalculePreco.h"
#include "TestDatabase.h"

#include <gtest/gtest.h>

#include <QLoggingCategory>

#include <optional>

namespace {

Money M(const char *texto) { return *Money::parse(QString::fromLatin1(texto)); }

std::string Txt(std::optional<Money> v) { return v ? v->toString().toStdString() : std::string("-"); }

// The worked purchase: 100,00 of goods, 10,00 off, 5,555 of other expenses, 3 units, margin 30.
TCalculePrecoEntrada Compra()
{
    TCalculePrecoEntrada e;
    e.margem = M("30");
    e.custoTot = M("100");
    e.desconto = M("10");
    e.outras = M("5.555");
    e.qtdComprada = 3;
    e.tipoIndice = 0;
    e.percTabelas = {M("10"), M("-5")};
    e.gravarCusto = true;
    return e;
}

// Cost 100 for one unit, no margin: the unit cost shows what the taxes did to the cost.
TCalculePrecoEntrada ComImpostos(int tipoIndice)
{
    TCalculePrecoEntrada e;
    e.custoTot = M("100");
    e.qtdComprada = 1;
    e.vICMS = M("7");
    e.vIPI = M("5");
    e.tipoIndice = tipoIndice;
    return e;
}

template <typename F>
TCalculePrecoEntrada Com(TCalculePrecoEntrada e, F mudar)
{
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

struct CasoPreco
{
    const char *nome;
    TCalculePrecoEntrada entrada;
    const char *esperado;
};

class CalculoPreco : public ::testing::TestWithParam<CasoPreco>
{
};

TEST_P(CalculoPreco, GivesCostsAndPrices)
{
    EXPECT_EQ(Descrever(TRepF_CalculePreco::Calcular(GetParam().entrada)), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(, CalculoPreco, ::testing::Values(
    CasoPreco{"worked_purchase", Compra(), "95.55 | 31.85 | 41.4 | 45.54 39.33"},
    CasoPreco{"no_write_back_leaves_total_cost", Com(Compra(), [](auto &e) { e.gravarCusto = false; }), "- | 31.85 | 41.4 | 45.54 39.33"},
    CasoPreco{"unit_cost_field_with_focus_keeps_typed_value", Com(Compra(), [](auto &e) { e.custoUnitComFoco = true; }),
              "95.55 | - | 41.4 | 45.54 39.33"},
    CasoPreco{"margin_zero_gives_no_price", Com(Compra(), [](auto &e) { e.margem = {}; }), "95.55 | 31.85 | 0 | 0 0"},
    CasoPreco{"quantity_below_a_thousandth", Com(Compra(), [](auto &e) { e.qtdComprada = 0.0009; }), "95.55 | 0 | 0 | 0 0"},
    CasoPreco{"quantity_of_one_thousandth", Com(Compra(), [](auto &e) { e.qtdComprada = 0.001; }),
              "95.55 | 95550 | 124215 | 136636.5 118004.25"},
    CasoPreco{"costs_cut_to_cents_not_rounded", Com(Compra(), [](auto &e) { e.custoTot = M("100.0099"); e.desconto = M("10.0049"); e.outras = {}; }),
              "90 | 30 | 39 | 42.9 37.05"},
    CasoPreco{"price_cut_to_cents_not_rounded", Com(Compra(), [](auto &e) { e.margem = M("35"); }), "95.55 | 31.85 | 42.99 | 47.28 40.85"},
    CasoPreco{"production_without_demanded_cost", Com(Compra(), [](auto &e) { e.tipoIndice = 3; e.producCustoExige = false; }), "nothing"},
    CasoPreco{"production_with_demanded_cost", Com(ComImpostos(3), [](auto &e) { e.margem = M("10"); }), "- | 112 | 123.2 | "},
    // Taxes: cost 100, ICMS 7, IPI 5, one unit; the unit cost is the cost.
    CasoPreco{"entry_ignores_st_and_ipi_flag", Com(ComImpostos(0), [](auto &e) { e.vBCST = M("50"); }), "- | 100 | 0 | "},
    CasoPreco{"return_adds_ipi_but_not_icms", ComImpostos(1), "- | 105 | 0 | "},
    CasoPreco{"return_without_ipi_flag_adds_nothing", Com(ComImpostos(1), [](auto &e) { e.ipiSomar = false; }), "- | 100 | 0 | "},
    CasoPreco{"simple_shipment_adds_icms", ComImpostos(2), "- | 112 | 0 | "},
    CasoPreco{"st_base_itself_replaces_icms", Com(ComImpostos(2), [](auto &e) { e.vBCST = M("50"); e.ipiSomar = false; }), "- | 150 | 0 | "},
    CasoPreco{"st_base_on_a_return", Com(ComImpostos(1), [](auto &e) { e.vBCST = M("0.01"); e.ipiSomar = false; }), "- | 100.01 | 0 | "},
    CasoPreco{"st_base_below_a_cent_is_none", Com(ComImpostos(2), [](auto &e) { e.vBCST = M("0.0099"); e.ipiSomar = false; }), "- | 107 | 0 | "}),
    [](const auto &caso) { return std::string(caso.param.nome); });

// ---------------------------------------------------------------------------------------------
// The entry modes come from the database on every calculation of an entry note.

const QString SqlIcms = QStringLiteral("select valor from config where chave='EST_CUS_ICMS_MODO'");
const QString SqlIpi = QStringLiteral("select valor from config where chave='EST_CUS_IPI_MODO'");

struct CasoModos
{
    const char *nome;
    const char *icms;       // nullptr: no row
    const char *ipi;
    const char *custoUnit;  // cost 100, ICMS 7, IPI 5
};

class ModosEntrada : public ::testing::TestWithParam<CasoModos>
{
};

TEST_P(ModosEntrada, AreReadAfreshAndApplied)
{
    const CasoModos &c = GetParam();
    TestDatabase db;
    ASSERT_TRUE(db.ok()) << db.erro().toStdString();
    for (const auto &[chave, valor] : {std::pair{"EST_CUS_ICMS_MODO", c.icms}, std::pair{"EST_CUS_IPI_MODO", c.ipi}}) {
        if (valor) {
            ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('%1', '%2')")
                                  .arg(QLatin1String(chave), QLatin1String(valor))), QString());
        }
    }

    TConexaoSQL conexao(db.banco());
    RegistroSql registro;
    const TCalculePrecoSaida s = TRepF_CalculePreco::Calcule(ComImpostos(0), conexao);
    EXPECT_EQ(Txt(s.custoUnit), c.custoUnit);
    EXPECT_EQ(RegistroSql::Sql(), (QStringList{SqlIcms, SqlIpi}));
    EXPECT_FALSE(conexao.Conectado());
}

INSTANTIATE_TEST_SUITE_P(, ModosEntrada, ::testing::Values(
    CasoModos{"no_rows", nullptr, nullptr, "100"},
    CasoModos{"icms_1_adds", "1", nullptr, "107"},
    CasoModos{"icms_2_deducts", "2", "", "93"},
    CasoModos{"ipi_1_adds", nullptr, "1", "105"},
    CasoModos{"ipi_2_deducts_with_blanks", "0", " 2 ", "95"},
    CasoModos{"both_add", "1", "1", "112"},
    CasoModos{"other_values_do_nothing", "3", "S", "100"}),
    [](const auto &caso) { return std::string(caso.param.nome); });

TEST(ModosEntradaNaoEntrada, OtherTypesAndSkippedProductionSendNothing)
{
    TestDatabase db;
    ASSERT_TRUE(db.ok()) << db.erro().toStdString();
    ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('EST_CUS_ICMS_MODO', '1')")), QString());
    TConexaoSQL conexao(db.banco());
    RegistroSql registro;

    // A return does not use the entry modes: no ICMS, the IPI through REP_IPI_SOMAR.
    EXPECT_EQ(Txt(TRepF_CalculePreco::Calcule(ComImpostos(1), conexao).custoUnit), "105");
    TCalculePrecoEntrada producao = ComImpostos(3);
    producao.producCustoExige = false;
    EXPECT_FALSE(TRepF_CalculePreco::Calcule(producao, conexao).calculado);
    EXPECT_TRUE(RegistroSql::Sql().isEmpty()) << RegistroSql::Sql().join('\n').toStdString();
}

// ---------------------------------------------------------------------------------------------
// Quantities and item costs.

TEST(CalculeQtd, CutsTheProductToFourDecimals)
{
    EXPECT_EQ(TRepF_CalculePreco::CalculeQtd(1.115, 1.111), 1.2387);   // rounding would give 1,2388
    EXPECT_EQ(TRepF_CalculePreco::CalculeQtd(0.1, 0.3), 0.03);          // 0.030000000000000002 in binary
}

TEST(CalculeCusto, UnitCostOnlyForAQuantityAtFourDecimals)
{
    struct Caso { double qtd; std::optional<Money> unit; };
    const Caso casos[] = {
        {3, M("30")},
        {0, std::nullopt},             // no division by zero: the column stays as it was
        {0.00005, std::nullopt},       // the half rounds to the even 0
        {0.00015, M("450000")},        // the half rounds to the even 0,0002
    };
    for (const Caso &c : casos) {
        const TCustoItem r = TRepF_CalculePreco::CalculeCusto(M("100"), M("10"), c.qtd);
        EXPECT_EQ(r.custo, M("90"));
        EXPECT_EQ(Txt(r.custoUnit), Txt(c.unit)) << "quantity " << c.qtd;
    }
}

} // namespace
