#include "Encode.h"
