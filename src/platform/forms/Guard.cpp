#include "Guard.h"
