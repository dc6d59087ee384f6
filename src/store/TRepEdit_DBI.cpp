#include "TRepEdit_DBI.h"
