#include "ButtonFace.h"
