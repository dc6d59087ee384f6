#include "TSelecaoImpressora.h"
