#include "Resample.h"
