#pragma once

#include "TClientDataSet.h"

#include <QString>

// The host's word for a dataset state, as screens show it in captions:
// style 1 the bare word ("Inserindo"), style 2 the name and the word ("Item - Inserindo").
QString DataSetStateToString(TDataSetState estado, const QString &nome, int estilo);
