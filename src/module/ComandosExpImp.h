#pragma once

#include <QStringList>

class QTextStream;

// The headless commands of the exchange file. Exit codes as ComandosHeadless::Executar's.
namespace ComandosExpImp {

// export FILE: every note with its movements into FILE.
int Export(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);
// import FILE --yes: replaces every note and its movements by those of FILE.
int Import(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosExpImp
