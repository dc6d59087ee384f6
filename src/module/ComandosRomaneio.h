#pragma once

#include <QStringList>

class QTextStream;

// The headless command of the packing list. Exit codes as ComandosHeadless::Executar's.
namespace ComandosRomaneio {

// romaneio NOTE [--pdf FILE | --text] [--copies N]
int Romaneio(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosRomaneio
