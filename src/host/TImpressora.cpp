#include "TImpressora.h"
