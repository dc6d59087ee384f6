#include "ComandosInsumos.h"

#include <QTextStream>

namespace ComandosInsumos {

int Inputs(const QStringList &, QTextStream &, QTextStream &)
{
    return 2;
}

} // namespace ComandosInsumos
