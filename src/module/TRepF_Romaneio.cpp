#include "TRepF.h"

void TRepF::RomaneioImprExecute() {}
