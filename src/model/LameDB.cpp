#include "LameDB.h"
