#include "JetEngine.h"
