#include "UEstoInsuItemF.h"
