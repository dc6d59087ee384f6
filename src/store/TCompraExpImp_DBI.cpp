#include "TCompraExpImp_DBI.h"
