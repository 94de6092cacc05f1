#include "AlbumData.h"
