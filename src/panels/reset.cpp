#include "panels/reset.h"

#include <cstring>

#include "panels/mix_color.h"
#include "panels/swatches.h"

void ResetPanels() {
  mixerWindows = {};
  std::memset(swatches, 0, sizeof swatches);
}
