#include "Recordset.h"
