#include "TEtiquetas_DBI.h"
