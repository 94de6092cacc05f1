#include "Picture.h"
