#include "Forms.h"
