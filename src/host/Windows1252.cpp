#include "Windows1252.h"

namespace {

// 0x80-0x9F; the five unassigned bytes stand for the C1 control of the same number.
constexpr char16_t faixa80[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char byteDe(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return char(c);
    for (int i = 0; i < 32; ++i) {
        if (faixa80[i] == c)
            return char(0x80 + i);
    }
    return '?';
}

} // namespace

QByteArray ParaWindows1252(QStringView texto)
{
    QByteArray r;
    r.reserve(texto.size());
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto.at(i);
        // A character beyond the 16-bit plane is one '?', not two.
        if (c.isHighSurrogate() && i + 1 < texto.size() && texto.at(i + 1).isLowSurrogate())
            ++i;
        r.append(c.isSurrogate() ? '?' : byteDe(c.unicode()));
    }
    return r;
}

QString DeWindows1252(QByteArrayView bytes)
{
    QString r(bytes.size(), Qt::Uninitialized);
    QChar *saida = r.data();
    for (const char b : bytes) {
        const auto u = static_cast<unsigned char>(b);
        *saida++ = QChar(u >= 0x80 && u < 0xA0 ? faixa80[u - 0x80] : char16_t(u));
    }
    return r;
}
