#include "SafeFile.h"
