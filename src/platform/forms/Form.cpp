#include "Form.h"
