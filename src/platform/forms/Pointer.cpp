#include "Pointer.h"
