#include "pixel/reset.h"

#include "pixel/vector_paths.h"

void ResetPixel() { UseVectorPaths(true); }
