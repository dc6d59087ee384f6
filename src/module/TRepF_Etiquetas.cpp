#include "TRepF.h"

void TRepF::EtiqExecute() {}
