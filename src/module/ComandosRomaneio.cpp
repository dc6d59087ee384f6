#include "ComandosRomaneio.h"

#include <QTextStream>

namespace ComandosRomaneio {

int Romaneio(const QStringList &, QTextStream &, QTextStream &) { return 2; }

} // namespace ComandosRomaneio
