// Dabs placed in the current stroke: reset to 0 when a stroke starts and
// read by what must know where in the stroke a dab falls (the life tip,
// the grab-and-drop pen modes).
#pragma once

#include <cstdint>

extern int32_t dabCount;
