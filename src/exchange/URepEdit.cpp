#include "URepEdit.h"
