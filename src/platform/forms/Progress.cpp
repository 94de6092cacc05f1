#include "Progress.h"
