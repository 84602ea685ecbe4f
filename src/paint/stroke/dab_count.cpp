#include "paint/stroke/dab_count.h"

int32_t dabCount = 0;
