// "Insumos do Item" and "Insumos da Nota": the inputs the current note's production consumes.
#include "TRepF.h"

void TRepF::InsumosItemExecute()
{
}

void TRepF::InsumosNotaExecute()
{
}
