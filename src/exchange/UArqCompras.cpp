#include "UArqCompras.h"
