#include "Look.h"
