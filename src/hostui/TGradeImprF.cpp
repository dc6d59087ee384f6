#include "TGradeImprF.h"
