#include "UEstoInsuNotaF.h"
