#include "MsgBox.h"
