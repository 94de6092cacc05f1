#include "JetSql.h"
