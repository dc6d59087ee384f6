#pragma once

#include <QString>

// NF-e access keys: 44 characters, held as text (the alphanumeric CNPJ puts letters in them).
namespace ChaveNFe {

// The modulo-11 check digit of the first 43 characters (each character weighs its code minus
// '0', so letters count as the authority's alphanumeric rule has them).
QChar Digito(QStringView chave43);
// 44 characters whose last one is the check digit of the others.
bool DigitoConfere(QStringView chave44);

} // namespace ChaveNFe

// The digits of the Id attribute of the first "<infNFe" in the file, looked for only within the
// 80 characters that start there and only between double quotes; empty when there is none.
QString NomeXMLToNFEChave(const QString &FileName);
