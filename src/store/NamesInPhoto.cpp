#include "NamesInPhoto.h"
