#include "URepF_ItensICMSUFDest.h"
