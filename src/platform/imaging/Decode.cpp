#include "Decode.h"
