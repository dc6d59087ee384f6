#include "TNfeCorrI.h"

void TNfeCorrI::EditarNfeCorr(const QString &, int, const QString &, QWidget *) {}
