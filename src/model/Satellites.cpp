#include "Satellites.h"
