#include "UEtiquetas.h"
