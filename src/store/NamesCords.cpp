#include "NamesCords.h"
