#include "Money.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>

namespace {

constexpr std::int64_t MaxRaw = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t MinRaw = std::numeric_limits<std::int64_t>::min();

Money m(const char *plain) { return *Money::parse(QString::fromLatin1(plain)); }

// Every operation that drops digits sends exact halves to the even neighbour; truncTo cuts towards
// zero; results beyond the range saturate keeping the sign.
TEST(Money, DropsDigitsAndSaturates)
{
    const struct { const char *name; Money result; const char *expected; } rows[] = {
        // fromDouble decides on the digits a person reads, not on the binary value
        {"DoubleHalfDown", Money::fromDouble(0.00025), "0.0002"}, {"DoubleUp", Money::fromDouble(0.00015), "0.0002"},
        {"DoubleNegative", Money::fromDouble(-0.00025), "-0.0002"}, {"DoubleToZero", Money::fromDouble(0.00005), "0"},
        {"DoubleBinaryAbove", Money::fromDouble(1.00005), "1"}, {"DoubleNoise", Money::fromDouble(0.1 + 0.2), "0.3"},
        {"DoubleExactKept", Money::fromDouble(0.125), "0.125"},
        {"RoundTo2HalfStays", m("1.005").roundTo(2), "1"}, {"RoundTo2HalfUp", m("1.015").roundTo(2), "1.02"},
        {"RoundTo2NegativeHalf", m("-1.015").roundTo(2), "-1.02"}, {"RoundTo2Carry", m("9.995").roundTo(2), "10"},
        {"RoundTo3ToZero", m("0.0005").roundTo(3), "0"}, {"RoundTo3Negative", m("-0.0025").roundTo(3), "-0.002"},
        {"RoundTo0Half", m("2.5").roundTo(0), "2"}, {"RoundTo0NegativeHalf", m("-3.5").roundTo(0), "-4"},
        {"ParseHalfAtFourth", m("0.00025"), "0.0002"},
        {"ParseTailAboveHalf", m("0.000250000000000000000000000000000000000000001"), "0.0003"},
        {"ProductHalf", m("2.5") * m("0.0001"), "0.0002"}, {"ProductNegativeHalf", m("-2.5") * m("0.0001"), "-0.0002"},
        {"QuotientHalf", *m("0.0003").dividedBy(m("2")), "0.0002"},
        {"QuotientNegativeHalf", *m("-0.0005").dividedBy(m("2")), "-0.0002"},
        {"QuotientThird", *m("-1").dividedBy(m("3")), "-0.3333"}, {"FactorHalf", m("1.15").times(1.111), "1.2776"},
        // the intermediate exceeds 64 bits but the result does not
        {"WideProduct", Money::fromInt(800000000000) * m("0.5"), "400000000000"},
        {"WideQuotient", *Money::fromInt(900000000000).dividedBy(m("3")), "300000000000"},
        {"TruncPositive", m("1.2389").truncTo(2), "1.23"}, {"TruncNegative", m("-1.2389").truncTo(2), "-1.23"},
        {"TruncToUnits", m("0.9999").truncTo(0), "0"},
        {"ProductOverflow", Money::fromInt(900000000000) * Money::fromInt(900000000000), "922337203685477.5807"},
        {"NegativeOverflow", -Money::fromInt(900000000000) * Money::fromInt(900000000000), "-922337203685477.5808"},
        {"DoubleOverflow", Money::fromDouble(-1e300), "-922337203685477.5808"},
        {"FactorOverflow", Money::fromInt(900000000000).times(1e6), "922337203685477.5807"},
        {"QuotientOverflow", *Money::fromRaw(MinRaw).dividedBy(Money::fromRaw(-Money::Scale)), "922337203685477.5807"},
        // sums, differences, negation and whole multiples saturate too
        {"MaxPlusOne", Money::fromRaw(MaxRaw) + Money::fromRaw(1), "922337203685477.5807"},
        {"MinMinusOne", Money::fromRaw(MinRaw) - Money::fromRaw(1), "-922337203685477.5808"},
        {"MinusMin", -Money::fromRaw(MinRaw), "922337203685477.5807"}, {"AbsMin", Money::fromRaw(MinRaw).abs(), "922337203685477.5807"},
        {"MinTimesMinusOne", Money::fromRaw(MinRaw) * -1, "922337203685477.5807"},
        {"FromIntOverflow", Money::fromInt(MaxRaw / 1000), "922337203685477.5807"},
        {"PlusEqualsAtMax", [] { Money v = Money::fromRaw(MaxRaw - 1); v += m("0.0002"); return v; }(), "922337203685477.5807"},
        {"MinusEqualsAtMin", [] { Money v = Money::fromRaw(MinRaw + 1); v -= m("0.0002"); return v; }(), "-922337203685477.5808"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.result.toString().toStdString(), row.expected) << row.name;
    EXPECT_FALSE(m("1").dividedBy(Money()).has_value());
}

TEST(Money, ReadsDatabaseAndTypedTextRefusingTheMalformed)
{
    const struct { const char *text; bool typed; std::optional<std::int64_t> raw; } rows[] = {
        {"1234.5000", false, 12345000}, {"-0.5", false, -5000}, {" 7 ", false, 70000},
        {"922337203685477.5807", false, MaxRaw}, {"922337203685478", false, {}},
        {"123456789012345678901234567890123456789012345", false, {}},
        {"", false, {}}, {".", false, {}}, {"-", false, {}}, {"1.2.3", false, {}}, {"1,5", false, {}}, {"1e3", false, {}},
        {"1.234,56", true, 12345600}, {"-0,01", true, -100}, {"0,00005", true, 0},
        {"1,234.56", true, {}}, {"12.5", true, {}}, {"12a", true, {}},
        // typed text is held to what the money columns take
        {"99.999.999.999.999,9999", true, Money::MaxColunaRaw}, {"-99999999999999,9999", true, -Money::MaxColunaRaw},
        {"99999999999999,99995", true, {}}, {"100000000000000", true, {}}, {"0099999999999999,5", true, 999999999999995000},
    };
    for (const auto &row : rows) {
        const QString text = QString::fromLatin1(row.text);
        const auto parsed = row.typed ? Money::parseBR(text) : Money::parse(text);
        EXPECT_EQ(parsed ? std::optional(parsed->raw()) : std::nullopt, row.raw) << '"' << row.text << '"';
    }
}

TEST(Money, WritesAndConvertsAtTheEdges)
{
    EXPECT_EQ(m("1.2345").toDouble(), 1.2345);
    // Beyond 2^53 ten-thousandths a plain division would round twice and land on ...604.3.
    EXPECT_EQ(m("525898626537604.3509").toDouble(), 525898626537604.4);
}

} // namespace
