#pragma once

#include <QString>

// Checks of Brazilian registration numbers and addresses, on the digits as they are stored
// (no punctuation).
namespace VerificaCadastro {

// 14 characters: 12 digits or capital letters (the alphanumeric CNPJ) and 2 check digits, each
// character weighing its code minus '0'. A CNPJ of one repeated character is refused.
bool CnpjValido(const QString &cnpj);
// 11 digits whose last two are the check digits; one repeated digit is refused.
bool CpfValido(const QString &cpf);
// The IBGE code of a state ("SP" -> 35); 0 when the text is none of the 27.
int CodigoUf(const QString &uf);
bool SoDigitos(const QString &texto, int tamanho);

} // namespace VerificaCadastro
