#include "BoundControls.h"
