#include "NumeroBR.h"

#include "Money.h"

namespace {

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

} // namespace

std::optional<QString> NumeroBRParaPonto(const QString &text)
{
    const QString t = text.trimmed();
    qsizetype i = 0;
    bool negative = false;
    if (i < t.size() && (t[i] == u'-' || t[i] == u'+'))
        negative = t[i++] == u'-';

    // Integer part: plain digits, or groups of three after a first group of one to three.
    QString integer;
    int groupLength = 0;
    bool grouped = false;
    for (; i < t.size() && t[i] != u','; ++i) {
        if (isDigit(t[i])) {
            integer += t[i];
            ++groupLength;
        } else if (t[i] == u'.' && groupLength > 0 && groupLength <= 3
                   && (!grouped || groupLength == 3)) {
            grouped = true;
            groupLength = 0;
        } else {
            return std::nullopt;
        }
    }
    if (grouped && groupLength != 3)
        return std::nullopt;

    QString fraction;
    for (++i; i < t.size(); ++i) {
        if (!isDigit(t[i]))
            return std::nullopt;
        fraction += t[i];
    }
    if (integer.isEmpty() && fraction.isEmpty())
        return std::nullopt;

    while (integer.startsWith(u'0'))
        integer.remove(0, 1);
    if (integer.size() > Money::DigitosInteirosColuna)
        return std::nullopt;
    while (fraction.endsWith(u'0'))
        fraction.chop(1);
    QString out = integer.isEmpty() ? QStringLiteral("0") : integer;
    if (!fraction.isEmpty())
        out += u'.' + fraction;
    if (negative && (!integer.isEmpty() || !fraction.isEmpty()))
        out.prepend(u'-');
    return out;
}
