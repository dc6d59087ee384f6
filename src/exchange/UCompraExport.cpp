#include "UCompraExport.h"
