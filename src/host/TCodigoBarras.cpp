#include "TCodigoBarras.h"

#include <algorithm>
#include <array>

namespace {

// Widths of the 107 Code 128 symbols; the stop (106) has a seventh element.
constexpr std::array<const char *, 107> Padroes128 = {
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212", "221213",
    "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211", "221132",
    "221231", "213212", "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",
    "212123", "212321", "232121", "111323", "131123", "131321", "112313", "132113", "132311", "211313",
    "231113", "231311", "112133", "112331", "132131", "113123", "113321", "133121", "313121", "211331",
    "231131", "213113", "213311", "213131", "311123", "311321", "331121", "312113", "312311", "332111",
    "314111", "221411", "431111", "111224", "111422", "121124", "121421", "141122", "141221", "112214",
    "112412", "122114", "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111",
    "111242", "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311", "113141",
    "114131", "311141", "411131", "211412", "211214", "211232", "2331112"};

enum Conjunto { A, B, C };
constexpr int Shift = 98, CodeC = 99, CodeB = 100, CodeA = 101, StartA = 103, Stop = 106;

bool Digito(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

int DigitosSeguidos(const QString &t, int i)
{
    int n = 0;
    while (i + n < t.size() && Digito(t[i + n]))
        ++n;
    return n;
}

// Set C pays off for a run of 4 digits at either end of the text, or 6 inside it.
bool ValeC(const QString &t, int i)
{
    const int n = DigitosSeguidos(t, i);
    const bool nasPontas = i == 0 || i + n == t.size();
    return n >= (nasPontas ? 4 : 6) || (n == 2 && t.size() == 2);
}

bool SoEmA(ushort c) { return c < 32; }
bool SoEmB(ushort c) { return c >= 96; }

int ValorEm(Conjunto conj, ushort c)
{
    if (conj == A)
        return c < 32 ? c + 64 : c - 32;
    return c - 32;
}

// Set A or B for what follows: the first character that only one of them holds decides.
Conjunto AouB(const QString &t, int i)
{
    for (; i < t.size(); ++i) {
        if (SoEmA(t[i].unicode()))
            return A;
        if (SoEmB(t[i].unicode()))
            return B;
    }
    return B;
}

} // namespace

std::vector<int> TCodigoBarras::Code128Simbolos(const QString &t)
{
    if (t.isEmpty())
        return {};
    for (const QChar c : t)
        if (c.unicode() > 127)
            return {};

    std::vector<int> s;
    Conjunto conj = ValeC(t, 0) ? C : AouB(t, 0);
    s.push_back(StartA + conj);
    for (int i = 0; i < t.size();) {
        if (conj != C && ValeC(t, i) && DigitosSeguidos(t, i) % 2 == 0) {
            s.push_back(CodeC);
            conj = C;
        }
        if (conj == C) {
            if (DigitosSeguidos(t, i) >= 2) {
                s.push_back(t.mid(i, 2).toInt());
                i += 2;
                continue;
            }
            conj = AouB(t, i);
            s.push_back(conj == A ? CodeA : CodeB);
        }
        const ushort c = t[i].unicode();
        const bool fora = (conj == A && SoEmB(c)) || (conj == B && SoEmA(c));
        if (fora) {
            const Conjunto outro = conj == A ? B : A;
            // One character of the other set goes by a shift; more of them switch the set.
            const bool proximoTambem = i + 1 < t.size()
                && (outro == A ? SoEmA(t[i + 1].unicode()) : SoEmB(t[i + 1].unicode()));
            if (proximoTambem) {
                conj = outro;
                s.push_back(conj == A ? CodeA : CodeB);
            } else {
                s.push_back(Shift);
                s.push_back(ValorEm(outro, c));
                ++i;
                continue;
            }
        }
        s.push_back(ValorEm(conj, c));
        ++i;
    }
    int soma = s.front();
    for (std::size_t k = 1; k < s.size(); ++k)
        soma += int(k) * s[k];
    s.push_back(soma % 103);
    s.push_back(Stop);
    return s;
}

std::vector<int> TCodigoBarras::Code128Modulos(const QString &texto)
{
    std::vector<int> larguras;
    for (const int v : Code128Simbolos(texto))
        for (const char *p = Padroes128[std::size_t(v)]; *p; ++p)
            larguras.push_back(*p - '0');
    return larguras;
}

int TCodigoBarras::Ean13Digito(const QString &doze)
{
    if (doze.size() != 12)
        return -1;
    int soma = 0;
    for (int i = 0; i < 12; ++i) {
        if (!Digito(doze[i]))
            return -1;
        soma += doze[i].digitValue() * (i % 2 ? 3 : 1);
    }
    return (10 - soma % 10) % 10;
}

std::vector<int> TCodigoBarras::Ean13Modulos(const QString &codigo)
{
    const int dv = Ean13Digito(codigo.left(12));
    if (dv < 0 || codigo.size() > 13 || (codigo.size() == 13 && codigo[12].digitValue() != dv))
        return {};
    const QString d = codigo.left(12) + QString::number(dv);

    // Set L as bits; R is its complement and G is R reversed. The first digit picks L or G
    // for each digit of the left half.
    static constexpr std::array<const char *, 10> L = {"0001101", "0011001", "0010011", "0111101", "0100011",
                                                       "0110001", "0101111", "0111011", "0110111", "0001011"};
    static constexpr std::array<const char *, 10> Paridade = {"LLLLLL", "LLGLGG", "LLGGLG", "LLGGGL", "LGLLGG",
                                                              "LGGLLG", "LGGGLL", "LGLGLG", "LGLGGL", "LGGLGL"};
    auto complemento = [](QString bits) {
        for (QChar &b : bits)
            b = b == QLatin1Char('0') ? QLatin1Char('1') : QLatin1Char('0');
        return bits;
    };
    QString bits = QStringLiteral("101");
    const char *paridade = Paridade[std::size_t(d[0].digitValue())];
    for (int i = 1; i <= 6; ++i) {
        const QString l = QLatin1String(L[std::size_t(d[i].digitValue())]);
        if (paridade[i - 1] == 'L') {
            bits += l;
        } else {
            QString g = complemento(l);
            std::reverse(g.begin(), g.end());
            bits += g;
        }
    }
    bits += QStringLiteral("01010");
    for (int i = 7; i <= 12; ++i)
        bits += complemento(QLatin1String(L[std::size_t(d[i].digitValue())]));
    bits += QStringLiteral("101");

    std::vector<int> larguras;
    for (int i = 0; i < bits.size(); ++i) {
        if (i == 0 || bits[i] != bits[i - 1])
            larguras.push_back(0);
        ++larguras.back();
    }
    return larguras;
}
