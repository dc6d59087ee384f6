#include "TRepF.h"

void TRepF::AltInfoExecute() {}
