// "Ajustar Item": the fiscal coding of the current item, even after posting.
#include "TRepF.h"

void TRepF::AjustarItemClick()
{
}
