#pragma once

#include <QStringList>

class QTextStream;

// The headless command of the price labels. Exit codes as ComandosHeadless::Executar's.
namespace ComandosEtiquetas {

// labels NOTE --pdf FILE [--per-unit]
int Labels(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosEtiquetas
