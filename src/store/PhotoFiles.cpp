#include "PhotoFiles.h"
