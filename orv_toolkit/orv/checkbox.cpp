#include "orv/checkbox.h"
