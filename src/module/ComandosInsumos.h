#pragma once

#include <QStringList>

class QTextStream;

// The headless command of the production inputs. Exit codes as ComandosHeadless::Executar's.
namespace ComandosInsumos {

// inputs NOTE [--item N]: the rows "Insumos da nota" shows, or "Insumos do Item" for item N.
int Inputs(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosInsumos
