#include "Drives.h"
