#include "TRepF.h"

void TRepF::ExportarComprasExecute() {}
void TRepF::ImportarComprasExecute() {}
