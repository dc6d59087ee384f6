#pragma once

#include <QStringList>

class QTextStream;

// The commands that run the screen's logic without a screen ("notes", ...). Answers the
// process exit code: 0 done, 1 refused or failed, 2 a command line that makes no sense.
namespace ComandosHeadless {

int Executar(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosHeadless
