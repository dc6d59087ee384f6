#include "Valores.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <cmath>
#include <locale>
#include <optional>
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

class Valores : public testing::Test
{
protected:
    void SetUp() override
    {
        m_anterior = std::locale::global(std::locale(std::locale::classic(), new CommaDecimal));
        std::ostringstream stream;
        stream << 1234.5;
        ASSERT_EQ(stream.str(), "1.234,5");
        ASSERT_EQ(QLocale().decimalPoint(), QStringLiteral(","));
    }
    void TearDown() override { std::locale::global(m_anterior); }

    std::locale m_anterior;
};

// Plain strings print readably when an expectation fails.
std::string text(const QString &value) { return value.toStdString(); }

// Each row is named by the call it checks.
#define ROW(call, expected) {#call, call, expected}

TEST_F(Valores, SqlLiteralsAndDateTexts)
{
    const struct { const char *call; QString got; const char *expected; } rows[] = {
        ROW(FloatToStrPonto(1234.5), "1234.5"), ROW(FloatToStrPonto(2.0), "2"), ROW(FloatToStrPonto(0.1 + 0.2), "0.3"),
        ROW(FloatToStrPonto(-0.5), "-0.5"), ROW(FloatToStrPonto(-0.0), "0"),
        ROW(FloatToStrPonto(1.0 / 3.0), "0.333333333333333"), ROW(FloatToStrPonto(1e-9), "0.000000001"),
        ROW(FloatToStrPonto(999999999999999.0), "999999999999999"),
        ROW(FloatToStrPonto(Money::fromDouble(1234.5)), "1234.5"),
        ROW(QuotedStr("''"), "''''''"), ROW(QuotedStr(""), "''"),
        ROW(QuotedStr("x'; delete from compra; --"), "'x''; delete from compra; --'"),
        ROW(QuotedStr(QString("a") + QChar(0) + "b" + QChar(0)), "'ab'"),
        ROW(QuotedStr("\t'\r\n\x1b[0m\x7f"), "'\t''\r\n\x1b[0m\x7f'"),
        ROW(StrToNumStrPonto("1.234,56"), "1234.56"), ROW(StrToNumStrPonto("12,50"), "12.5"),
        ROW(StrToNumStrPonto("3"), "3"), ROW(StrToNumStrPonto("-0,0"), "0"),
        ROW(StrToNumStrPonto("123456789012,3456789"), "123456789012.3456789"), ROW(StrToNumStrPonto(""), "0"),
        ROW(StrToNumStrPonto("1,234.56"), "0"), ROW(StrToNumStrPonto("1; drop table x"), "0"),
        ROW(DataSQLFirebird(QDate(2026, 11, 22)), "'2026-11-22'"), ROW(DataSQLFirebird(QDate(5, 1, 2)), "'0005-01-02'"),
        ROW(DataSQLFirebird(QDate()), "NULL"), ROW(DataSQLFirebird(QDate(10000, 1, 1)), "NULL"),
        ROW(DataHoraSQLFirebird(QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9, 870))), "'2026-11-22 14:05:09'"),
        ROW(DataHoraSQLFirebird(QDateTime()), "NULL"),
        ROW(FormatDateTime("dd/mm/yy", QDateTime(QDate(2026, 3, 5), QTime(9, 7, 4))), "05/03/26"),
        ROW(FormatDateTime("dd/mm/yyyy hh:nn:ss", QDateTime(QDate(2026, 3, 5), QTime(9, 7, 4))), "05/03/2026 09:07:04"),
        ROW(FormatDateTime("hh:mm", QDateTime(QDate(2026, 3, 5), QTime(9, 7, 4))), "09:07"),
        ROW(FormatDateTime("d/m/yyyy", QDate(2026, 3, 5)), "5/3/2026"),
        ROW(FormatDateTime("dd/mm/yyyy hh:nn", QDate(2026, 12, 31)), "31/12/2026 00:00"),
        ROW(FormatDateTime("dd/mm/yy", QDateTime()), ""), ROW(FormatDateTime("dd/mm/yy", QDate()), ""),
    };
    for (const auto &row : rows)
        EXPECT_EQ(text(row.got), row.expected) << row.call;
}

#undef ROW

TEST_F(Valores, StrToIntStrKeepsOnlyTheDigitsOfAValid32BitInteger)
{
    const struct { const char *text, *expected; } rows[] = {
        {" 12 ", "12"}, {"-7", "-7"}, {"12a3", "123"}, {"-0", "0"}, {"", "0"}, {"2147483647", "2147483647"},
        {"00000000002147483647", "2147483647"}, {"2147483648", "0"}, {"-2147483649", "0"},
        {"99999999999999999999999", "0"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(text(StrToIntStr(QString::fromUtf8(row.text))), row.expected) << row.text;
}

// Halves are decided as the printed number reads; exact equality, as the result must be the
// double nearest to the decimal.
TEST_F(Valores, RoundToAndTruncarViaStr)
{
    const struct { const char *name; double got, expected; } rows[] = {
        {"HalfUpBinaryBelow", RoundTo(2.675, 2), 2.68}, {"HalfDownBinaryAbove", RoundTo(2.665, 2), 2.66},
        {"NegativeHalfUp", RoundTo(-2.675, 2), -2.68}, {"NegativeHalfDown", RoundTo(-2.665, 2), -2.66},
        {"Carry", RoundTo(9.995, 2), 10.0}, {"HalfToZero", RoundTo(0.0005, 3), 0.0},
        {"NegativeThreeDecimals", RoundTo(-0.0025, 3), -0.002}, {"FourDecimals", RoundTo(1.00025, 4), 1.0002},
        {"FloatNoise", RoundTo(0.1 + 0.2, 1), 0.3}, {"ZeroDecimals", RoundTo(16.5, 0), 16.0},
        {"TruncCutsPrinted", TruncarViaStr(1.115 * 1.111, 4), 1.2387},
        {"TruncBinaryBelow", TruncarViaStr(4.35 * 100, 0), 435.0},   // 434.99999999999994 in binary
        {"TruncNegative", TruncarViaStr(-2.999, 2), -2.99}, {"TruncFewerDigits", TruncarViaStr(1.2, 3), 1.2},
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.got, row.expected) << row.name;
    EXPECT_FALSE(std::signbit(RoundTo(-0.0004, 3))) << "no negative zero";
}

TEST_F(Valores, FormatFloatWritesBrazilianSeparators)
{
    const struct { const char *name, *pattern; double value; const char *expected; } rows[] = {
        {"TwoDecimals", "######0.00", 1234.5, "1234,50"}, {"LongInteger", "#0.00", 1234567.891, "1234567,89"},
        {"NegativeHalf", "#0.00", -0.015, "-0,02"}, {"NegativeHalfToZero", "#0.00", -0.005, "0,00"},
        {"IntegerHalfUp", "##0", 17.5, "18"}, {"IntegerHalfDown", "######0", 16.5, "16"},
        {"ZeroPaddedNegative", "00000", -42.0, "-00042"}, {"ZeroPaddedTooLong", "000000", 1234567.0, "1234567"},
        {"Optional", "######0.###", 2.5, "2,5"}, {"OptionalHalf", "####0.###", 1.2345, "1,234"},
        {"OptionalToZero", "####0.###", 0.0005, "0"}, {"OneDecimalHalfToZero", "###0.0", 0.05, "0,0"},
        {"OneDecimalHalfUp", "###0.0", 0.15, "0,2"}, {"ThousandsNegative", "#,###,##0.00", -1234.5, "-1.234,50"},
        {"ThousandsCarry", "#,###,##0.00", 999.995, "1.000,00"},
        {"ThousandsBeyondPattern", "#,###,##0.00", 1234567890.0, "1.234.567.890,00"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(text(FormatFloat(row.pattern, row.value)), row.expected);
        // Every row holds at most 4 decimals, so the money form must print the same.
        EXPECT_EQ(text(FormatFloat(row.pattern, Money::fromDouble(row.value))), row.expected);
    }
}

TEST_F(Valores, LerNumeroBRTakesBrazilianNumbersOnly)
{
    const struct { const char *text; std::optional<double> expected; } rows[] = {
        {"1.234,56", 1234.56}, {"1.234", 1234.0}, {"1.234.567,8", 1234567.8}, {"1234,5", 1234.5}, {"  -0,5 ", -0.5},
        {",5", 0.5}, {"12", 12.0},
        // a '.' groups thousands, so exactly three digits follow it
        {"1,234.56", {}}, {"12.5", {}}, {"1.23.456", {}}, {"1234.567", {}}, {"1..234", {}},
        {"1 234", {}}, {"1e5", {}}, {"", {}}, {"-", {}}, {",", {}}, {"--1", {}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(LerNumeroBR(QString::fromUtf8(row.text)), row.expected) << '"' << row.text << '"';
}

} // namespace
