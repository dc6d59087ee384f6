#pragma once

#include <QStringList>

class QTextStream;

// The headless commands of the tax adjustments. Exit codes as ComandosHeadless::Executar's.
namespace ComandosTax {

// difal NOTE [--set U,F,I,P --yes]: the rows the destination-state ICMS dialog opens with; with
// --set, those four rates on every row, written as the confirmed dialog writes them.
int Difal(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosTax
