#include "Trash.h"
