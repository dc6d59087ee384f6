#include "ComandosEtiquetas.h"

#include <QTextStream>

namespace ComandosEtiquetas {

int Labels(const QStringList &, QTextStream &, QTextStream &) { return 2; }

} // namespace ComandosEtiquetas
