#include "Valores.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <cmath>
#include <locale>
#include <ostream>
#include <sstream>
#include <string>

namespace {

// A C++ locale that writes "1.234,5": any value formatted through iostreams or the global
// locale instead of the value functions shows up as a wrong separator.
struct CommaDecimal final : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class ValoresComVirgula : public testing::Test
{
public:
    static void SetUpTestSuite()
    {
        previous() = std::locale::global(std::locale(std::locale::classic(), new CommaDecimal));
    }
    static void TearDownTestSuite() { std::locale::global(previous()); }

private:
    static std::locale &previous()
    {
        static std::locale saved;
        return saved;
    }
};

// Plain strings print readably when an expectation fails.
std::string text(const QString &value) { return value.toStdString(); }

template<typename Row>
std::string rowName(const testing::TestParamInfo<Row> &info) { return info.param.name; }

TEST_F(ValoresComVirgula, RunsUnderBrazilianLocales)
{
    std::ostringstream stream;
    stream << 1234.5;
    ASSERT_EQ(stream.str(), "1.234,5");
    ASSERT_EQ(QLocale().decimalPoint(), QStringLiteral(","));
}

// --- SQL text ---------------------------------------------------------------------------------

TEST_F(ValoresComVirgula, FloatToStrPontoWritesAPlainDecimalPoint)
{
    EXPECT_EQ(text(FloatToStrPonto(1234.5)), "1234.5");
    EXPECT_EQ(text(FloatToStrPonto(2.0)), "2");
    EXPECT_EQ(text(FloatToStrPonto(0.1 + 0.2)), "0.3");
    EXPECT_EQ(text(FloatToStrPonto(-0.5)), "-0.5");
    EXPECT_EQ(text(FloatToStrPonto(-0.0)), "0");
    EXPECT_EQ(text(FloatToStrPonto(1.0 / 3.0)), "0.333333333333333");
    EXPECT_EQ(text(FloatToStrPonto(999999999999999.0)), "999999999999999");
    EXPECT_EQ(text(FloatToStrPonto(123456789.1234)), "123456789.1234");
    EXPECT_EQ(text(FloatToStrPonto(0.0001)), "0.0001");
    EXPECT_EQ(text(FloatToStrPonto(1e-9)), "0.000000001");
    EXPECT_EQ(text(FloatToStrPonto(Money::fromDouble(1234.5))), "1234.5");
    EXPECT_EQ(text(FloatToStrPonto(Money::fromDouble(-0.01))), "-0.01");
}

TEST_F(ValoresComVirgula, QuotedStrDoublesInnerQuotesAndKeepsTheRest)
{
    EXPECT_EQ(text(QuotedStr("O'Neil")), "'O''Neil'");
    EXPECT_EQ(text(QuotedStr("''")), "''''''");
    EXPECT_EQ(text(QuotedStr("")), "''");
    EXPECT_EQ(text(QuotedStr("Açúcar; drop table prod")), "'Açúcar; drop table prod'");
    EXPECT_EQ(text(QuotedStr("x'; delete from compra; --")), "'x''; delete from compra; --'");
}

TEST_F(ValoresComVirgula, StrToIntStrKeepsOnlyTheDigitsOfAValid32BitInteger)
{
    const struct { const char *text, *expected; } rows[] = {
        {" 12 ", "12"}, {"-7", "-7"}, {"12a3", "123"}, {"1 or 1=1", "111"}, {"-0", "0"},
        {"", "0"}, {"abc", "0"},
        {"2147483647", "2147483647"}, {"00000000002147483647", "2147483647"},
        {"2147483648", "0"}, {"-2147483649", "0"}, {"99999999999999999999999", "0"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(text(StrToIntStr(QString::fromUtf8(row.text))), row.expected) << row.text;
}

TEST_F(ValoresComVirgula, StrToNumStrPontoTurnsTheCommaIntoAPoint)
{
    EXPECT_EQ(text(StrToNumStrPonto("1.234,56")), "1234.56");
    EXPECT_EQ(text(StrToNumStrPonto("12,50")), "12.5");
    EXPECT_EQ(text(StrToNumStrPonto("3")), "3");
    EXPECT_EQ(text(StrToNumStrPonto("-0,0")), "0");
    EXPECT_EQ(text(StrToNumStrPonto("123456789012,3456789")), "123456789012.3456789");
    EXPECT_EQ(text(StrToNumStrPonto("")), "0");
    EXPECT_EQ(text(StrToNumStrPonto("1,234.56")), "0");
    EXPECT_EQ(text(StrToNumStrPonto("1; drop table x")), "0");
}

TEST_F(ValoresComVirgula, FirebirdDateLiterals)
{
    EXPECT_EQ(text(DataSQLFirebird(QDate(2026, 11, 22))), "'2026-11-22'");
    EXPECT_EQ(text(DataSQLFirebird(QDate(5, 1, 2))), "'0005-01-02'");
    EXPECT_EQ(text(DataSQLFirebird(QDate())), "NULL");
    EXPECT_EQ(text(DataSQLFirebird(QDate(10000, 1, 1))), "NULL");
    EXPECT_EQ(text(DataHoraSQLFirebird(QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9, 870)))),
              "'2026-11-22 14:05:09'");
    EXPECT_EQ(text(DataHoraSQLFirebird(QDateTime())), "NULL");
}

// --- Rounding through the decimal text -------------------------------------------------------

struct RoundRow
{
    const char *name;
    double value;
    int decimals;
    double expected;
};

void PrintTo(const RoundRow &row, std::ostream *os) { *os << row.name; }

class ValoresRoundTo : public ValoresComVirgula, public testing::WithParamInterface<RoundRow> {};

TEST_P(ValoresRoundTo, DecidesHalvesAsThePrintedNumberReads)
{
    // Exact equality: the result must be the double nearest to the rounded decimal.
    EXPECT_EQ(RoundTo(GetParam().value, GetParam().decimals), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Valores, ValoresRoundTo, testing::Values(
    RoundRow{"TwoDecimalsHalfUpToEven", 2.675, 2, 2.68},   // binary value is below the half
    RoundRow{"TwoDecimalsHalfDownToEven", 2.665, 2, 2.66}, // binary value is above the half
    RoundRow{"TwoDecimalsNegativeHalfUp", -2.675, 2, -2.68},
    RoundRow{"TwoDecimalsNegativeHalfDown", -2.665, 2, -2.66},
    RoundRow{"TwoDecimalsCarry", 9.995, 2, 10.0},
    RoundRow{"ThreeDecimalsHalfToZero", 0.0005, 3, 0.0},
    RoundRow{"ThreeDecimalsHalfStaysEven", 1.0005, 3, 1.0},
    RoundRow{"ThreeDecimalsNegativeHalf", -0.0025, 3, -0.002},
    RoundRow{"FourDecimalsHalfDown", 1.00025, 4, 1.0002},
    RoundRow{"FourDecimalsNegativeHalf", -1.00025, 4, -1.0002},
    RoundRow{"FloatNoise", 0.1 + 0.2, 1, 0.3},
    RoundRow{"ZeroDecimalsHalf", 16.5, 0, 16.0}),
    rowName<RoundRow>);

TEST_F(ValoresComVirgula, RoundToNeverGivesNegativeZero)
{
    EXPECT_FALSE(std::signbit(RoundTo(-0.0004, 3)));
}

TEST_F(ValoresComVirgula, TruncarViaStrCutsThePrintedDigits)
{
    EXPECT_EQ(TruncarViaStr(1.115 * 1.111, 4), 1.2387);
    EXPECT_EQ(TruncarViaStr(4.35 * 100, 0), 435.0);   // 434.99999999999994 in binary
    EXPECT_EQ(TruncarViaStr(0.3, 1), 0.3);
    EXPECT_EQ(TruncarViaStr(2.999, 2), 2.99);
    EXPECT_EQ(TruncarViaStr(-2.999, 2), -2.99);
    EXPECT_EQ(TruncarViaStr(1.2, 3), 1.2);
}

// --- Display patterns ---------------------------------------------------------------------------

struct PatternRow
{
    const char *name;
    const char *pattern;
    double value;
    const char *expected;
};

void PrintTo(const PatternRow &row, std::ostream *os) { *os << row.name; }

class ValoresFormatFloat : public ValoresComVirgula, public testing::WithParamInterface<PatternRow> {};

TEST_P(ValoresFormatFloat, WritesBrazilianSeparators)
{
    const PatternRow &row = GetParam();
    const QString pattern = QString::fromLatin1(row.pattern);
    EXPECT_EQ(text(FormatFloat(pattern, row.value)), row.expected);
    // Every row holds at most 4 decimals, so the money form must print the same.
    EXPECT_EQ(text(FormatFloat(pattern, Money::fromDouble(row.value))), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Valores, ValoresFormatFloat, testing::Values(
    PatternRow{"TwoDecimals", "######0.00", 1234.5, "1234,50"},
    PatternRow{"TwoDecimalsLongInteger", "#0.00", 1234567.891, "1234567,89"},
    PatternRow{"TwoDecimalsNegative", "#0.00", -0.015, "-0,02"},
    PatternRow{"NegativeRoundingToZero", "#0.00", -0.004, "0,00"},
    PatternRow{"NegativeHalfToZero", "#0.00", -0.005, "0,00"},
    PatternRow{"IntegerHalfUp", "##0", 17.5, "18"},
    PatternRow{"IntegerHalfDown", "######0", 16.5, "16"},
    PatternRow{"ZeroPadded3", "000", 7.0, "007"},
    PatternRow{"ZeroPaddedNegative", "00000", -42.0, "-00042"},
    PatternRow{"ZeroPaddedTooLong", "000000", 1234567.0, "1234567"},
    PatternRow{"OptionalDecimals", "######0.###", 2.5, "2,5"},
    PatternRow{"OptionalDecimalsHalf", "####0.###", 1.2345, "1,234"},
    PatternRow{"OptionalDecimalsToZero", "####0.###", 0.0005, "0"},
    PatternRow{"OptionalFourDecimals", "######0.####", 0.0015, "0,0015"},
    PatternRow{"OneDecimalHalfToZero", "###0.0", 0.05, "0,0"},
    PatternRow{"OneDecimalHalfUp", "###0.0", 0.15, "0,2"},
    PatternRow{"Thousands", "#,###,##0.00", 1234567.5, "1.234.567,50"},
    PatternRow{"ThousandsNegative", "#,###,##0.00", -1234.5, "-1.234,50"},
    PatternRow{"ThousandsCarry", "#,###,##0.00", 999.995, "1.000,00"},
    PatternRow{"ThousandsBeyondPattern", "#,###,##0.00", 1234567890.0, "1.234.567.890,00"},
    PatternRow{"ThousandsFourDecimals", "#,###,##0.0000", 1234.5, "1.234,5000"}),
    rowName<PatternRow>);

TEST_F(ValoresComVirgula, FormatDateTimePatterns)
{
    const QDateTime when(QDate(2026, 3, 5), QTime(9, 7, 4));
    EXPECT_EQ(text(FormatDateTime("dd/mm/yy", when)), "05/03/26");
    EXPECT_EQ(text(FormatDateTime("dd/mm/yy hh:nn", when)), "05/03/26 09:07");
    EXPECT_EQ(text(FormatDateTime("dd/mm/yyyy", when)), "05/03/2026");
    EXPECT_EQ(text(FormatDateTime("dd/mm/yyyy hh:nn:ss", when)), "05/03/2026 09:07:04");
    EXPECT_EQ(text(FormatDateTime("hh:nn", when)), "09:07");
    EXPECT_EQ(text(FormatDateTime("hh:mm", when)), "09:07");
    EXPECT_EQ(text(FormatDateTime("d/m/yyyy", when)), "5/3/2026");
    EXPECT_EQ(text(FormatDateTime("dd/mm/yyyy hh:nn", QDate(2026, 12, 31))), "31/12/2026 00:00");
    EXPECT_EQ(text(FormatDateTime("dd/mm/yy", QDateTime())), "");
    EXPECT_EQ(text(FormatDateTime("dd/mm/yy", QDate())), "");
}

TEST_F(ValoresComVirgula, PrimeiroDateMes)
{
    EXPECT_EQ(PrimeiroDateMes(QDate(2024, 2, 29)), QDate(2024, 2, 1));
    EXPECT_FALSE(PrimeiroDateMes(QDate()).isValid());
}

// --- Reading what was typed ----------------------------------------------------------------------

TEST_F(ValoresComVirgula, LerNumeroBRAcceptsBrazilianNumbers)
{
    const struct { const char *text; double expected; } rows[] = {
        {"1.234,56", 1234.56}, {"1.234", 1234.0}, {"1.234.567,8", 1234567.8}, {"1234,5", 1234.5},
        {"  -0,5 ", -0.5}, {",5", 0.5}, {"12", 12.0},
    };
    for (const auto &row : rows)
        EXPECT_EQ(LerNumeroBR(QString::fromUtf8(row.text)), row.expected) << row.text;
}

TEST_F(ValoresComVirgula, LerNumeroBRRefusesEverythingElse)
{
    const char *const rows[] = {
        "1,234.56", "12.5", "1.23", "1.23.456", "1234.567", "1..234",   // not thousands groups
        "1 234", "12a", "1e5", "", "   ", "-", ",", "--1",
    };
    for (const char *row : rows)
        EXPECT_EQ(LerNumeroBR(QString::fromUtf8(row)), std::nullopt) << '"' << row << '"';
}

} // namespace
