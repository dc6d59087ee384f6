#include "URepEditF.h"
