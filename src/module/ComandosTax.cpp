#include "ComandosTax.h"

#include <QTextStream>

namespace ComandosTax {

int Difal(const QStringList &, QTextStream &, QTextStream &)
{
    return 2;
}

} // namespace ComandosTax
