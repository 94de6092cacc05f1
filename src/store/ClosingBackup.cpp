#include "ClosingBackup.h"
