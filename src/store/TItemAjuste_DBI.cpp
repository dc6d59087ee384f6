#include "TItemAjuste_DBI.h"
