#include "Money.h"

#include "NumeroBR.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

// Overflow policy: a result beyond the int64 range is a programming error (no amount a store
// handles comes near 9.2e14), so every operation saturates at the range's limits instead of
// wrapping: the value keeps its sign and stays absurdly large, which makes the mistake visible
// (and CabeNaColuna false). Text outside the range is not a money value and parses to nullopt;
// typed text is held to what the money columns take, so it is refused where it is typed.

namespace {

__extension__ typedef __int128 Int128;

constexpr std::int64_t MaxRaw = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t MinRaw = std::numeric_limits<std::int64_t>::min();

Int128 magnitude(Int128 v) { return v < 0 ? -v : v; }

std::int64_t saturate(Int128 v)
{
    if (v > MaxRaw)
        return MaxRaw;
    if (v < MinRaw)
        return MinRaw;
    return static_cast<std::int64_t>(v);
}

Int128 powerOfTen(int exponent)
{
    Int128 p = 1;
    for (int i = 0; i < exponent; ++i)
        p *= 10;
    return p;
}

// num / den rounded half to even on the exact quotient; den must not be zero.
Int128 divideHalfEven(Int128 num, Int128 den)
{
    const Int128 q = num / den;
    const Int128 r = magnitude(num % den);
    if (r == 0)
        return q;
    const Int128 d = magnitude(den);
    // r against d - r instead of 2r against d, so that nothing overflows near 10^38.
    const bool away = r > d - r || (r == d - r && q % 2 != 0);
    if (!away)
        return q;
    return ((num < 0) != (den < 0)) ? q - 1 : q + 1;
}

// A finite double as mantissa x 10^exponent, the mantissa holding its 15 significant digits:
// the digits a person reads, so 0.125 is an exact half and 0.1 + 0.2 is 0.3.
struct DecimalDigits
{
    Int128 mantissa = 0;
    int exponent = 0;
};

DecimalDigits decimalDigits(double value)
{
    char buffer[40];
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, value,
                                       std::chars_format::scientific, 14);
    const std::string_view text(buffer, static_cast<std::size_t>(written.ptr - buffer));
    const std::size_t e = text.find('e');
    DecimalDigits out;
    for (char c : text.substr(0, e)) {
        if (c >= '0' && c <= '9')
            out.mantissa = out.mantissa * 10 + (c - '0');
    }
    if (text.front() == '-')
        out.mantissa = -out.mantissa;
    std::string_view exponentText = text.substr(e + 1);
    if (!exponentText.empty() && exponentText.front() == '+')
        exponentText.remove_prefix(1);
    int exponent = 0;
    std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    out.exponent = exponent - 14;
    return out;
}

// value x 10^exponent rounded half to even, saturated to int64.
std::int64_t scaleHalfEven(Int128 value, int exponent)
{
    if (value == 0)
        return 0;
    if (exponent >= 0) {
        for (int i = 0; i < exponent; ++i) {
            if (magnitude(value) > MaxRaw)
                break;
            value *= 10;
        }
        return saturate(value);
    }
    // |value| stays below 10^35 here, so beyond 37 dropped digits nothing is left.
    if (exponent < -37)
        return 0;
    return saturate(divideHalfEven(value, powerOfTen(-exponent)));
}

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Integer and fraction digits of plain decimal text (optional sign, digits, optional '.').
struct PlainNumber
{
    bool negative = false;
    std::string integer;
    std::string fraction;
};

std::optional<PlainNumber> splitPlain(QStringView text)
{
    PlainNumber out;
    qsizetype i = 0;
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
        out.negative = text[i++] == u'-';
    bool inFraction = false;
    for (; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'.' && !inFraction) {
            inFraction = true;
        } else if (isDigit(c)) {
            (inFraction ? out.fraction : out.integer) += static_cast<char>(c.unicode());
        } else {
            return std::nullopt;
        }
    }
    if (out.integer.empty() && out.fraction.empty())
        return std::nullopt;
    return out;
}

std::optional<std::int64_t> rawFromPlain(const PlainNumber &number)
{
    const std::size_t firstSignificant = number.integer.find_first_not_of('0');
    const std::string_view integer = firstSignificant == std::string::npos
        ? std::string_view()
        : std::string_view(number.integer).substr(firstSignificant);
    // int64 holds at most 922337203685477 whole units.
    if (integer.size() > 15)
        return std::nullopt;
    const std::string_view fraction = number.fraction;
    std::string kept(integer);
    kept += fraction.substr(0, 4);
    kept.append(4 - std::min<std::size_t>(fraction.size(), 4), '0');
    Int128 raw = 0;
    for (char c : kept)
        raw = raw * 10 + (c - '0');
    if (fraction.size() > 4) {
        const char next = fraction[4];
        const bool restNonZero = fraction.find_first_not_of('0', 5) != std::string_view::npos;
        if (next > '5' || (next == '5' && (restNonZero || raw % 2 != 0)))
            ++raw;
    }
    if (number.negative)
        raw = -raw;
    if (raw > MaxRaw || raw < MinRaw)
        return std::nullopt;
    return static_cast<std::int64_t>(raw);
}

Int128 unitOf(int decimals)
{
    const int kept = decimals < 0 ? 0 : (decimals > 4 ? 4 : decimals);
    return powerOfTen(4 - kept);
}

} // namespace

Money Money::fromDouble(double value)
{
    return fromRaw(Scale).times(value);
}

std::optional<Money> Money::parse(QStringView text)
{
    const auto number = splitPlain(text.trimmed());
    if (!number)
        return std::nullopt;
    const auto raw = rawFromPlain(*number);
    if (!raw)
        return std::nullopt;
    return fromRaw(*raw);
}

std::optional<Money> Money::parseBR(QStringView text)
{
    const auto plain = NumeroBRParaPonto(text.toString());
    if (!plain)
        return std::nullopt;
    const auto value = parse(*plain);
    if (!value || !value->CabeNaColuna())
        return std::nullopt;
    return value;
}

double Money::toDouble() const
{
    // Below 2^53 both operands are exact and the division is correctly rounded.
    constexpr std::int64_t exactLimit = std::int64_t(1) << 53;
    if (m_raw > -exactLimit && m_raw < exactLimit)
        return static_cast<double>(m_raw) / Scale;
    const std::string text = toString().toStdString();
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

QString Money::toString() const
{
    const std::uint64_t absolute = m_raw < 0 ? 0 - static_cast<std::uint64_t>(m_raw)
                                             : static_cast<std::uint64_t>(m_raw);
    QString text = QString::number(absolute / Scale);
    std::uint64_t fraction = absolute % Scale;
    if (fraction != 0) {
        int digits = 4;
        while (fraction % 10 == 0) {
            fraction /= 10;
            --digits;
        }
        text += u'.';
        text += QString::number(fraction).rightJustified(digits, u'0');
    }
    if (m_raw < 0)
        text.prepend(u'-');
    return text;
}

Money Money::roundTo(int decimals) const
{
    const Int128 unit = unitOf(decimals);
    return fromRaw(saturate(divideHalfEven(m_raw, unit) * unit));
}

Money Money::truncTo(int decimals) const
{
    const std::int64_t unit = static_cast<std::int64_t>(unitOf(decimals));
    return fromRaw(m_raw - m_raw % unit);
}

Money Money::operator*(Money o) const
{
    return fromRaw(saturate(divideHalfEven(Int128(m_raw) * o.m_raw, Scale)));
}

Money Money::times(double factor) const
{
    if (std::isnan(factor))
        return Money();
    if (std::isinf(factor)) {
        if (m_raw == 0)
            return Money();
        return fromRaw((m_raw < 0) != (factor < 0) ? MinRaw : MaxRaw);
    }
    const DecimalDigits digits = decimalDigits(factor);
    return fromRaw(scaleHalfEven(Int128(m_raw) * digits.mantissa, digits.exponent));
}

std::optional<Money> Money::dividedBy(Money divisor) const
{
    if (divisor.m_raw == 0)
        return std::nullopt;
    return fromRaw(saturate(divideHalfEven(Int128(m_raw) * Scale, divisor.m_raw)));
}
