#include "ImgRatio.h"
