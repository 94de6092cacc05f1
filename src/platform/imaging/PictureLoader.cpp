#include "PictureLoader.h"
