#include "WorkPool.h"
