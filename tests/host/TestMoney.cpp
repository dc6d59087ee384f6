#include "Money.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

namespace {

constexpr std::int64_t MaxRaw = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t MinRaw = std::numeric_limits<std::int64_t>::min();

Money m(const char *plain) { return *Money::parse(QString::fromLatin1(plain)); }

template<typename Row>
std::string rowName(const testing::TestParamInfo<Row> &info) { return info.param.name; }

// --- Every operation that drops digits: exact halves go to the even neighbour -----------------

struct RoundingRow
{
    const char *name;
    Money result;
    const char *expected;
};

void PrintTo(const RoundingRow &row, std::ostream *os) { *os << row.name; }

class MoneyRounding : public testing::TestWithParam<RoundingRow> {};

TEST_P(MoneyRounding, GivesTheEvenNeighbourOnExactHalves)
{
    EXPECT_EQ(GetParam().result.toString().toStdString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Money, MoneyRounding, testing::Values(
    // fromDouble decides on the digits a person reads, not on the binary value
    RoundingRow{"FromDoubleHalfDownToEven", Money::fromDouble(0.00025), "0.0002"},
    RoundingRow{"FromDoubleHalfUpToEven", Money::fromDouble(0.00015), "0.0002"},
    RoundingRow{"FromDoubleNegativeHalf", Money::fromDouble(-0.00025), "-0.0002"},
    RoundingRow{"FromDoubleHalfToZero", Money::fromDouble(0.00005), "0"},
    RoundingRow{"FromDoubleBinaryAboveHalf", Money::fromDouble(1.00005), "1"},
    RoundingRow{"FromDoubleFloatNoise", Money::fromDouble(0.1 + 0.2), "0.3"},
    RoundingRow{"FromDoubleExactValueKept", Money::fromDouble(0.125), "0.125"},
    // roundTo at 2, 3 and 0 decimals
    RoundingRow{"RoundTo2HalfStaysEven", m("1.005").roundTo(2), "1"},
    RoundingRow{"RoundTo2HalfGoesUpToEven", m("1.015").roundTo(2), "1.02"},
    RoundingRow{"RoundTo2NegativeHalfAway", m("-1.015").roundTo(2), "-1.02"},
    RoundingRow{"RoundTo2Carry", m("9.995").roundTo(2), "10"},
    RoundingRow{"RoundTo3HalfToZero", m("0.0005").roundTo(3), "0"},
    RoundingRow{"RoundTo3NegativeHalf", m("-0.0025").roundTo(3), "-0.002"},
    RoundingRow{"RoundTo0Half", m("2.5").roundTo(0), "2"},
    RoundingRow{"RoundTo0NegativeHalf", m("-3.5").roundTo(0), "-4"},
    // the fourth decimal: parse, products, quotients and factors
    RoundingRow{"ParseHalfAtFourth", m("0.00025"), "0.0002"},
    RoundingRow{"ParseTailAboveHalf", m("0.000250000000000000000000000000000000000000001"), "0.0003"},
    RoundingRow{"ProductHalfToEven", m("2.5") * m("0.0001"), "0.0002"},
    RoundingRow{"ProductNegativeHalf", m("-2.5") * m("0.0001"), "-0.0002"},
    RoundingRow{"QuotientHalf", *m("0.0003").dividedBy(m("2")), "0.0002"},
    RoundingRow{"QuotientNegativeHalf", *m("-0.0005").dividedBy(m("2")), "-0.0002"},
    RoundingRow{"QuotientThird", *m("-1").dividedBy(m("3")), "-0.3333"},
    RoundingRow{"FactorHalfToEven", m("1.15").times(1.111), "1.2776"},
    // the intermediate product exceeds 64 bits but the result does not
    RoundingRow{"WideIntermediateProduct", Money::fromInt(800000000000) * m("0.5"), "400000000000"},
    RoundingRow{"WideIntermediateQuotient", *Money::fromInt(900000000000).dividedBy(m("3")), "300000000000"}),
    rowName<RoundingRow>);

TEST(MoneyArithmetic, TruncatesTowardsZeroAndRefusesDivisionByZero)
{
    EXPECT_EQ(m("1.2389").truncTo(2), m("1.23"));
    EXPECT_EQ(m("-1.2389").truncTo(2), m("-1.23"));
    EXPECT_EQ(m("0.9999").truncTo(0), Money());
    EXPECT_FALSE(m("1").dividedBy(Money()).has_value());
}

TEST(MoneyArithmetic, OverflowSaturatesKeepingTheSign)
{
    const Money big = Money::fromInt(900000000000);
    EXPECT_EQ((big * big).raw(), MaxRaw);
    EXPECT_EQ((-big * big).raw(), MinRaw);
    EXPECT_EQ(Money::fromDouble(-1e300).raw(), MinRaw);
    EXPECT_EQ(big.times(1e6).raw(), MaxRaw);
    EXPECT_EQ(Money::fromRaw(MinRaw).dividedBy(Money::fromRaw(-Money::Scale))->raw(), MaxRaw);
}

// --- Text in and out --------------------------------------------------------------------------

TEST(MoneyText, ParsesDatabaseAndTypedText)
{
    const struct { const char *text; bool typed; std::int64_t raw; } rows[] = {
        {"1234.5000", false, 12345000}, {"-0.5", false, -5000}, {" 7 ", false, 70000},
        {"922337203685477.5807", false, MaxRaw},
        {"1.234,56", true, 12345600}, {"-0,01", true, -100}, {"0,00005", true, 0},
    };
    for (const auto &row : rows) {
        const QString text = QString::fromLatin1(row.text);
        const auto parsed = row.typed ? Money::parseBR(text) : Money::parse(text);
        ASSERT_TRUE(parsed.has_value()) << row.text;
        EXPECT_EQ(parsed->raw(), row.raw) << row.text;
    }
}

TEST(MoneyText, RefusesMalformedOrOutOfRangeText)
{
    for (const char *text : {"", ".", "-", "1.2.3", "1,5", "1e3", "922337203685478",
                             "123456789012345678901234567890123456789012345"})
        EXPECT_FALSE(Money::parse(QString::fromLatin1(text)).has_value()) << '"' << text << '"';
    for (const char *text : {"1,234.56", "12.5", "12a"})
        EXPECT_FALSE(Money::parseBR(QString::fromLatin1(text)).has_value()) << text;
}

TEST(MoneyText, WritesTheShortestPlainDecimal)
{
    EXPECT_EQ(m("1234.5").toString().toStdString(), "1234.5");
    EXPECT_EQ(Money().toString().toStdString(), "0");
    EXPECT_EQ(m("-0.01").toString().toStdString(), "-0.01");
    EXPECT_EQ(m("12.0000").toString().toStdString(), "12");
    EXPECT_EQ(Money::fromRaw(MinRaw).toString().toStdString(), "-922337203685477.5808");
}

TEST(MoneyText, ToDoubleGivesTheNearestDouble)
{
    EXPECT_EQ(m("1.2345").toDouble(), 1.2345);
    // Beyond 2^53 ten-thousandths a plain division would round twice and land on ...604.3.
    EXPECT_EQ(m("525898626537604.3509").toDouble(), 525898626537604.4);
}

} // namespace
