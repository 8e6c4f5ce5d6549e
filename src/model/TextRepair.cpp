#include "TextRepair.h"
