#include "Connection.h"
