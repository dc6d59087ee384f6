#include "TRomaneio_DBI.h"
