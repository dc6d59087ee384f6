#include "TSaidaItemEdUFDestF.h"
