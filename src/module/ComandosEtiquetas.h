#pragma once

#include <QStringList>

class QTextStream;

// The headless command of the price labels. Exit codes as ComandosHeadless::Executar's.
namespace ComandosEtiquetas {

// labels NOTE --pdf FILE [--per-unit] [--roll]: one label per product (per unit received), on A4
// sheets of 3 x 10 (one a page for a roll).
int Labels(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosEtiquetas
