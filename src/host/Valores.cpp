#include "Valores.h"

#include <QTime>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

// Nothing here may depend on the locale: SQL needs a decimal point on every workstation, and
// the screens need Brazilian separators whatever the machine is set to. Numbers are therefore
// handled as decimal digit strings, produced by std::to_chars and read back by std::from_chars.

namespace {

// value = (negative ? -1 : 1) x digits x 10^exponent. The digits carry no leading or trailing
// zeros, so zero has none and is never negative.
class Decimal final
{
public:
    // The 15 significant digits a person reads in the double: 0.1 + 0.2 is 0.3, 2.675 is 2.675.
    static Decimal fromDouble(double value)
    {
        Decimal d;
        if (!std::isfinite(value))
            return d;
        char buffer[40];
        const auto written = std::to_chars(buffer, buffer + sizeof buffer, value,
                                           std::chars_format::scientific, 14);
        const std::string_view text(buffer, static_cast<std::size_t>(written.ptr - buffer));
        const std::size_t e = text.find('e');
        for (char c : text.substr(0, e)) {
            if (c >= '0' && c <= '9')
                d.m_digits += c;
        }
        d.m_negative = text.front() == '-';
        std::string_view exponentText = text.substr(e + 1);
        if (exponentText.front() == '+')
            exponentText.remove_prefix(1);
        int exponent = 0;
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
        d.m_exponent = exponent - static_cast<int>(d.m_digits.size()) + 1;
        d.normalise();
        return d;
    }

    static Decimal fromMoney(Money value)
    {
        Decimal d;
        const std::int64_t raw = value.raw();
        const std::uint64_t absolute = raw < 0 ? 0 - static_cast<std::uint64_t>(raw)
                                               : static_cast<std::uint64_t>(raw);
        d.m_digits = std::to_string(absolute);
        d.m_exponent = -4;
        d.m_negative = raw < 0;
        d.normalise();
        return d;
    }

    Decimal roundedTo(int decimals) const { return cut(decimals, true); }
    Decimal truncatedTo(int decimals) const { return cut(decimals, false); }

    bool isNegative() const { return m_negative; }

    // Digits before the point; empty when the value is below one.
    std::string integerDigits() const
    {
        if (m_exponent >= 0)
            return m_digits + std::string(static_cast<std::size_t>(m_exponent), '0');
        const int pointAt = static_cast<int>(m_digits.size()) + m_exponent;
        return pointAt <= 0 ? std::string() : m_digits.substr(0, static_cast<std::size_t>(pointAt));
    }

    // The first `count` digits after the point, zero-padded.
    std::string fractionDigits(int count) const
    {
        std::string out;
        if (m_exponent < 0) {
            const int pointAt = static_cast<int>(m_digits.size()) + m_exponent;
            if (pointAt < 0)
                out.assign(static_cast<std::size_t>(-pointAt), '0');
            out += m_digits.substr(static_cast<std::size_t>(std::max(pointAt, 0)));
        }
        out.resize(static_cast<std::size_t>(std::max(count, 0)), '0');
        return out;
    }

    std::string plainText(char point) const
    {
        std::string out = m_negative ? "-" : "";
        const std::string integer = integerDigits();
        out += integer.empty() ? "0" : integer;
        if (m_exponent < 0) {
            out += point;
            out += fractionDigits(-m_exponent);
        }
        return out;
    }

    double toDouble() const
    {
        const std::string text = (m_negative ? "-" : "") + (m_digits.empty() ? "0" : m_digits)
            + 'e' + std::to_string(m_exponent);
        double value = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    }

private:
    Decimal cut(int decimals, bool roundHalfEven) const
    {
        const int dropped = -decimals - m_exponent;
        if (dropped <= 0)
            return *this;
        const int length = static_cast<int>(m_digits.size());
        Decimal out;
        out.m_negative = m_negative;
        out.m_exponent = -decimals;
        if (dropped < length)
            out.m_digits = m_digits.substr(0, static_cast<std::size_t>(length - dropped));
        if (roundHalfEven && roundsUp(dropped))
            out.increment();
        out.normalise();
        return out;
    }

    // Whether dropping the last `dropped` digits rounds away from zero, halves going to even.
    bool roundsUp(int dropped) const
    {
        const int length = static_cast<int>(m_digits.size());
        if (dropped > length)
            return false;   // the first dropped digit is a leading zero: less than half
        const std::size_t first = static_cast<std::size_t>(length - dropped);
        const char next = m_digits[first];
        if (next != '5')
            return next > '5';
        const bool exactHalf = m_digits.find_first_not_of('0', first + 1) == std::string::npos;
        if (!exactHalf)
            return true;
        const bool keptOdd = first > 0 && (m_digits[first - 1] - '0') % 2 != 0;
        return keptOdd;
    }

    void increment()
    {
        for (auto it = m_digits.rbegin(); it != m_digits.rend(); ++it) {
            if (*it != '9') {
                ++*it;
                return;
            }
            *it = '0';
        }
        m_digits.insert(m_digits.begin(), '1');
    }

    void normalise()
    {
        const std::size_t first = m_digits.find_first_not_of('0');
        if (first == std::string::npos) {
            *this = Decimal();
            return;
        }
        m_digits.erase(0, first);
        const std::size_t last = m_digits.find_last_not_of('0');
        m_exponent += static_cast<int>(m_digits.size() - last - 1);
        m_digits.erase(last + 1);
    }

    std::string m_digits;
    int m_exponent = 0;
    bool m_negative = false;
};

bool isAsciiDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// --- Display patterns ---

// One section of a Delphi numeric pattern: literal text around the placeholders, the digits
// always shown before the point, the decimals always and at most shown, thousands grouping.
struct NumberPattern
{
    QString prefix;
    QString suffix;
    int minInteger = 0;
    int minDecimals = 0;
    int maxDecimals = 0;
    bool grouping = false;
    bool hasPlaceholders = false;
};

bool isPlaceholder(QChar c) { return c == u'0' || c == u'#' || c == u'.' || c == u','; }

NumberPattern parseNumberPattern(const QString &pattern)
{
    NumberPattern p;
    // Only one section is understood; a negative or zero section is ignored.
    const QString section = pattern.section(u';', 0, 0);
    qsizetype first = 0;
    while (first < section.size() && !isPlaceholder(section[first]))
        ++first;
    qsizetype last = section.size() - 1;
    while (last >= first && !isPlaceholder(section[last]))
        --last;
    p.prefix = section.left(first);
    p.suffix = section.mid(last + 1);
    const QString core = section.mid(first, last - first + 1);
    p.hasPlaceholders = core.contains(u'0') || core.contains(u'#');

    const qsizetype point = core.indexOf(u'.');
    const QString integer = point < 0 ? core : core.left(point);
    const QString decimals = point < 0 ? QString() : core.mid(point + 1);
    p.grouping = integer.contains(u',');
    const qsizetype firstZero = integer.indexOf(u'0');
    if (firstZero >= 0)
        p.minInteger = static_cast<int>(integer.size() - firstZero - integer.mid(firstZero).count(u','));
    for (QChar c : decimals) {
        if (c == u'0')
            p.minDecimals = ++p.maxDecimals;
        else if (c == u'#')
            ++p.maxDecimals;
    }
    return p;
}

std::string groupThousands(const std::string &digits)
{
    std::string out;
    const std::size_t n = digits.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0)
            out += '.';
        out += digits[i];
    }
    return out;
}

QString formatDecimal(const QString &pattern, const Decimal &value)
{
    const NumberPattern p = parseNumberPattern(pattern);
    if (!p.hasPlaceholders)
        return QString::fromStdString(value.plainText(','));
    const Decimal rounded = value.roundedTo(p.maxDecimals);
    std::string integer = rounded.integerDigits();
    if (static_cast<int>(integer.size()) < p.minInteger)
        integer.insert(0, static_cast<std::size_t>(p.minInteger) - integer.size(), '0');
    if (p.grouping)
        integer = groupThousands(integer);
    std::string fraction = rounded.fractionDigits(p.maxDecimals);
    while (static_cast<int>(fraction.size()) > p.minDecimals && fraction.back() == '0')
        fraction.pop_back();

    QString out = rounded.isNegative() ? QStringLiteral("-") : QString();
    out += p.prefix;
    out += QString::fromStdString(integer);
    if (!fraction.empty())
        out += u',' + QString::fromStdString(fraction);
    out += p.suffix;
    return out;
}

// --- Date patterns ---

QString padded(int value, int width)
{
    return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
}

qsizetype runLength(const QString &pattern, qsizetype from)
{
    const QChar c = pattern[from].toLower();
    qsizetype end = from;
    while (end < pattern.size() && pattern[end].toLower() == c)
        ++end;
    return end - from;
}

QString formatDateAndTime(const QString &pattern, QDate date, QTime time)
{
    QString out;
    bool afterHour = false;   // "mm" right after an hour means minutes
    for (qsizetype i = 0; i < pattern.size();) {
        const QChar c = pattern[i].toLower();
        if (c == u'"' || c == u'\'') {
            const qsizetype close = pattern.indexOf(pattern[i], i + 1);
            const qsizetype end = close < 0 ? pattern.size() : close;
            out += pattern.mid(i + 1, end - i - 1);
            i = end + 1;
            continue;
        }
        if (!c.isLetter()) {
            out += pattern[i++];
            continue;
        }
        const qsizetype n = runLength(pattern, i);
        const int width = n >= 2 ? 2 : 1;
        i += n;
        const bool minutesByPosition = c == u'm' && afterHour;
        afterHour = c == u'h';
        if (c == u'd')
            out += padded(date.day(), width);
        else if (c == u'm' && !minutesByPosition)
            out += padded(date.month(), width);
        else if (c == u'm' || c == u'n')
            out += padded(time.minute(), width);
        else if (c == u'y')
            out += n <= 2 ? padded(date.year() % 100, 2) : padded(date.year(), 4);
        else if (c == u'h')
            out += padded(time.hour(), width);
        else if (c == u's')
            out += padded(time.second(), width);
        else if (c == u'z')
            out += padded(time.msec(), n >= 3 ? 3 : 1);
        else
            out += pattern.mid(i - n, n);
    }
    return out;
}

bool isFirebirdDate(const QDate &date)
{
    return date.isValid() && date.year() >= 1 && date.year() <= 9999;
}

QString firebirdDate(const QDate &date)
{
    return padded(date.year(), 4) + u'-' + padded(date.month(), 2) + u'-' + padded(date.day(), 2);
}

} // namespace

// --- SQL text ---

QString FloatToStrPonto(double value)
{
    return QString::fromStdString(Decimal::fromDouble(value).plainText('.'));
}

QString FloatToStrPonto(Money value)
{
    return value.toString();
}

QString StrToIntStr(const QString &text)
{
    bool negative = false;
    std::string digits;
    for (QChar c : text) {
        if (isAsciiDigit(c)) {
            if (!digits.empty() || c != u'0')
                digits += static_cast<char>(c.unicode());
        } else if (c == u'-' && digits.empty()) {
            negative = true;
        }
    }
    // Leading zeros are gone, so more than ten digits is beyond 32 bits.
    if (digits.empty() || digits.size() > 10)
        return QStringLiteral("0");
    long long value = std::stoll(digits);
    if (negative)
        value = -value;
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        return QStringLiteral("0");
    return QString::number(value);
}

QString StrToNumStrPonto(const QString &text)
{
    return NumeroBRParaPonto(text).value_or(QStringLiteral("0"));
}

QString QuotedStr(const QString &text)
{
    QString out = text;
    out.remove(QChar(u'\0'));
    out.replace(u'\'', QStringLiteral("''"));
    return u'\'' + out + u'\'';
}

QString DataSQLFirebird(const QDate &date)
{
    if (!isFirebirdDate(date))
        return QStringLiteral("NULL");
    return u'\'' + firebirdDate(date) + u'\'';
}

QString DataHoraSQLFirebird(const QDateTime &dateTime)
{
    if (!dateTime.isValid() || !isFirebirdDate(dateTime.date()))
        return QStringLiteral("NULL");
    const QTime t = dateTime.time();
    return u'\'' + firebirdDate(dateTime.date()) + u' ' + padded(t.hour(), 2) + u':'
        + padded(t.minute(), 2) + u':' + padded(t.second(), 2) + u'\'';
}

// --- Rounding ---

double TruncarViaStr(double value, int decimals)
{
    if (!std::isfinite(value))
        return value;
    return Decimal::fromDouble(value).truncatedTo(decimals).toDouble();
}

double RoundTo(double value, int decimals)
{
    if (!std::isfinite(value))
        return value;
    return Decimal::fromDouble(value).roundedTo(decimals).toDouble();
}

// --- Display ---

QString FormatFloat(const QString &pattern, double value)
{
    return formatDecimal(pattern, Decimal::fromDouble(value));
}

QString FormatFloat(const QString &pattern, Money value)
{
    return formatDecimal(pattern, Decimal::fromMoney(value));
}

QString FormatDateTime(const QString &pattern, const QDateTime &value)
{
    if (!value.isValid())
        return QString();
    return formatDateAndTime(pattern, value.date(), value.time());
}

QString FormatDateTime(const QString &pattern, const QDate &value)
{
    if (!value.isValid())
        return QString();
    return formatDateAndTime(pattern, value, QTime(0, 0));
}

// --- Reading what was typed ---

std::optional<double> LerNumeroBR(const QString &text)
{
    const auto plain = NumeroBRParaPonto(text);
    if (!plain)
        return std::nullopt;
    const std::string s = plain->toStdString();
    double value = 0.0;
    const auto result = std::from_chars(s.data(), s.data() + s.size(), value);
    if (result.ec != std::errc())
        return std::nullopt;
    return value;
}

// --- Dates ---

QDate PrimeiroDateMes(const QDate &date)
{
    if (!date.isValid())
        return QDate();
    return QDate(date.year(), date.month(), 1);
}
