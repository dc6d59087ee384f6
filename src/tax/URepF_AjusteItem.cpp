#include "URepF_AjusteItem.h"
