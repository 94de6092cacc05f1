#include "AddPhotos.h"
