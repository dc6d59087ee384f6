#include "Windows1252.h"
