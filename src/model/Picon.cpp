#include "Picon.h"
