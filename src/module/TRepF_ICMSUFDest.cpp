// "Ajustar ICMS UF Dest": the destination state's ICMS of the current note's movements.
#include "TRepF.h"

void TRepF::AjustarICMSUFDestClick()
{
}
