#include "URepItemAJusteF.h"
