#include "TICMSUFDest_DBI.h"
