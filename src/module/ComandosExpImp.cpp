#include "ComandosExpImp.h"

#include <QTextStream>

namespace ComandosExpImp {

int Export(const QStringList &, QTextStream &, QTextStream &) { return 2; }
int Import(const QStringList &, QTextStream &, QTextStream &) { return 2; }

} // namespace ComandosExpImp
