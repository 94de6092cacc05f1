#include "PhotoIdentity.h"
