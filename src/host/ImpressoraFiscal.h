#pragma once

#include <QString>

// The fiscal printer's routines live in an optional library named by PAVREL_ECF_LIBRARY.
// Without one there is nothing to load; a library that cannot be loaded is a failure.
namespace ImpressoraFiscal {
bool PegarProcs(QString *erro);
}
