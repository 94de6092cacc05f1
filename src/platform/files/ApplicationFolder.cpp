#include "ApplicationFolder.h"
