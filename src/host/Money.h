#pragma once

#include <QMetaType>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <limits>
#include <optional>

// Fixed-point money: a signed count of ten-thousandths.
// Rounding policy: every operation that has to drop digits (fromDouble, products, quotients,
// roundTo) rounds half to even on the exact decimal value; truncTo cuts digits towards zero.
// Intermediate products and quotients are computed in 128 bits, so they never overflow on the
// way to the result. A rounded result beyond the int64 range is a programming error and
// saturates at the range's limits; so do sums, differences, negation and whole multiples. Text
// beyond the range does not parse; typed text beyond the money columns does not parse either.
class Money final
{
public:
    static constexpr std::int64_t Scale = 10000;
    // The widest value the money columns (NUMERIC(18,4)) hold: 99999999999999.9999.
    static constexpr std::int64_t MaxColunaRaw = 999999999999999999;
    static constexpr int DigitosInteirosColuna = 14;
    constexpr bool CabeNaColuna() const { return m_raw >= -MaxColunaRaw && m_raw <= MaxColunaRaw; }

    constexpr Money() = default;
    static constexpr Money fromRaw(std::int64_t tenThousandths) { Money m; m.m_raw = tenThousandths; return m; }
    static constexpr Money fromInt(std::int64_t units) { return fromRaw(units) * Scale; }
    // Rounds half to even at 4 decimals, deciding on the shortest decimal text of the double.
    static Money fromDouble(double value);
    // Plain decimal text with '.' as separator ("1234.5000", "-0.5", "12"); the form the database
    // hands out. More than 4 decimals round half to even. Empty or malformed text gives nullopt.
    static std::optional<Money> parse(QStringView text);
    // Brazilian text as typed ("1.234,56", "1234,5", "-0,01"). Malformed text, and a value the
    // money columns cannot hold once rounded to 4 decimals, give nullopt.
    static std::optional<Money> parseBR(QStringView text);

    constexpr std::int64_t raw() const { return m_raw; }
    double toDouble() const;
    // Shortest decimal text with '.', no thousands separator, no trailing zeros ("1234.5", "0", "-0.01").
    QString toString() const;

    Money roundTo(int decimals) const;   // half to even, decimals 0..4
    Money truncTo(int decimals) const;   // towards zero, decimals 0..4
    constexpr Money abs() const { return m_raw < 0 ? -*this : *this; }

    constexpr Money operator-() const { return Money() - *this; }
    constexpr Money operator+(Money o) const
    {
        std::int64_t r = 0;
        return fromRaw(__builtin_add_overflow(m_raw, o.m_raw, &r) ? Limite(o.m_raw > 0) : r);
    }
    constexpr Money operator-(Money o) const
    {
        std::int64_t r = 0;
        return fromRaw(__builtin_sub_overflow(m_raw, o.m_raw, &r) ? Limite(o.m_raw < 0) : r);
    }
    constexpr Money &operator+=(Money o) { return *this = *this + o; }
    constexpr Money &operator-=(Money o) { return *this = *this - o; }
    Money operator*(Money o) const;      // rounded half to even at 4 decimals
    constexpr Money operator*(std::int64_t n) const
    {
        std::int64_t r = 0;
        return fromRaw(__builtin_mul_overflow(m_raw, n, &r) ? Limite((m_raw < 0) == (n < 0)) : r);
    }
    Money times(double factor) const;    // factor taken through its shortest decimal text
    // Quotient rounded half to even at 4 decimals; nullopt on division by zero.
    std::optional<Money> dividedBy(Money divisor) const;

    friend constexpr auto operator<=>(Money, Money) = default;
    friend constexpr bool operator==(Money, Money) = default;

private:
    static constexpr std::int64_t Limite(bool positivo)
    {
        return positivo ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int64_t>::min();
    }

    std::int64_t m_raw = 0;
};

Q_DECLARE_METATYPE(Money)
