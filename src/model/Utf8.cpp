#include "Utf8.h"
