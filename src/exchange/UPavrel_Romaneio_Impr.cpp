#include "UPavrel_Romaneio_Impr.h"
