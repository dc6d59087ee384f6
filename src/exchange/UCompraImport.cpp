#include "UCompraImport.h"
