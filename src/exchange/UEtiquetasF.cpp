#include "UEtiquetasF.h"
