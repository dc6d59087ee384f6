// The NF-e actions of the screen: send, cancel, print again, correction letter.
#include "TRepF.h"

void TRepF::NFEEnviarExecute() {}
void TRepF::NFECancExecute() {}
void TRepF::NFEImprExecute() {}
void TRepF::NfeCorrExecute() {}
