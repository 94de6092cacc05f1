#include "Stage.h"
