#include "ComandosInteresse.h"

#include <QTextStream>

namespace ComandosInteresse {

int NfeInteresse(const QStringList &, QTextStream &, QTextStream &) { return 1; }

} // namespace ComandosInteresse
