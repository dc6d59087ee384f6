#include "ComandosNFeServicos.h"

#include <QTextStream>

namespace ComandosNFeServicos {

int NfeStatus(const QStringList &, QTextStream &, QTextStream &) { return 1; }
int NfeSend(const QStringList &, QTextStream &, QTextStream &) { return 1; }
int NfeCancel(const QStringList &, QTextStream &, QTextStream &) { return 1; }
int NfePrint(const QStringList &, QTextStream &, QTextStream &) { return 1; }
int NfeCce(const QStringList &, QTextStream &, QTextStream &) { return 1; }

} // namespace ComandosNFeServicos
