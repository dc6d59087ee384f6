#pragma once

#include <QString>

#include <vector>

// Bar codes as module widths (bar, space, bar, ... starting with a bar), for whoever draws them:
// the DANFE's access key in Code 128 and the labels' EAN-13.
namespace TCodigoBarras {

// The Code 128 symbol values of a text: start, data (switching between sets C, B and A where it
// saves symbols or where a character needs it), check symbol and stop. Empty when a character is
// outside ASCII 0..127 or the text is empty.
std::vector<int> Code128Simbolos(const QString &texto);
// The widths of those symbols, the stop's final bar included. Empty when not encodable.
std::vector<int> Code128Modulos(const QString &texto);

// The check digit of 12 EAN-13 digits; -1 when they are not 12 digits.
int Ean13Digito(const QString &dozeDigitos);
// The 95 modules of an EAN-13 (guards included) as widths; 12 digits get their check digit,
// 13 must carry the right one. Empty otherwise.
std::vector<int> Ean13Modulos(const QString &codigo);

} // namespace TCodigoBarras
