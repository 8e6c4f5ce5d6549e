#include "Bouquet.h"
