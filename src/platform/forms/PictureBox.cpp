#include "PictureBox.h"
