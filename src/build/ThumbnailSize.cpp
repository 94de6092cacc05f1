#include "ThumbnailSize.h"
