#include "VerificaCadastro.h"

#include <array>
#include <utility>

namespace VerificaCadastro {

namespace {

// Modulo-11 check digit over the characters with weights running from `pesoMaximo` down to 2
// and starting again at `pesoMaximo` (9 for the CNPJ, unbounded for the CPF).
QChar Digito(QStringView texto, int pesoMaximo)
{
    int soma = 0;
    int peso = 2;
    for (qsizetype i = texto.size() - 1; i >= 0; --i) {
        soma += (texto.at(i).unicode() - '0') * peso;
        peso = peso == pesoMaximo ? 2 : peso + 1;
    }
    const int resto = soma % 11;
    return QChar(resto < 2 ? '0' : char('0' + 11 - resto));
}

bool Repetido(const QString &texto)
{
    return texto.count(texto.at(0)) == texto.size();
}

bool DigitosConferem(const QString &texto, int pesoMaximo)
{
    const qsizetype n = texto.size() - 2;
    return Digito(QStringView(texto).left(n), pesoMaximo) == texto.at(n)
           && Digito(QStringView(texto).left(n + 1), pesoMaximo) == texto.at(n + 1);
}

} // namespace

bool SoDigitos(const QString &texto, int tamanho)
{
    if (texto.size() != tamanho)
        return false;
    for (const QChar c : texto)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return true;
}

bool CnpjValido(const QString &cnpj)
{
    if (cnpj.size() != 14 || !SoDigitos(cnpj.right(2), 2) || Repetido(cnpj))
        return false;
    for (const QChar c : QStringView(cnpj).left(12))
        if (!((c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))))
            return false;
    return DigitosConferem(cnpj, 9);
}

bool CpfValido(const QString &cpf)
{
    return SoDigitos(cpf, 11) && !Repetido(cpf) && DigitosConferem(cpf, 11);
}

int CodigoUf(const QString &uf)
{
    static const std::array<std::pair<const char *, int>, 27> ufs{{
        {"RO", 11}, {"AC", 12}, {"AM", 13}, {"RR", 14}, {"PA", 15}, {"AP", 16}, {"TO", 17},
        {"MA", 21}, {"PI", 22}, {"CE", 23}, {"RN", 24}, {"PB", 25}, {"PE", 26}, {"AL", 27},
        {"SE", 28}, {"BA", 29}, {"MG", 31}, {"ES", 32}, {"RJ", 33}, {"SP", 35}, {"PR", 41},
        {"SC", 42}, {"RS", 43}, {"MS", 50}, {"MT", 51}, {"GO", 52}, {"DF", 53},
    }};
    for (const auto &[sigla, codigo] : ufs)
        if (uf == QLatin1String(sigla))
            return codigo;
    return 0;
}

} // namespace VerificaCadastro
