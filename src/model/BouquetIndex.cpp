#include "BouquetIndex.h"
