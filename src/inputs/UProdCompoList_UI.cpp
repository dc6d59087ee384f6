#include "UProdCompoList_UI.h"
