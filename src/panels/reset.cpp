#include "panels/reset.h"

#include <cstring>

#include "panels/layer_rows.h"
#include "panels/mix_color.h"
#include "panels/swatches.h"
#include "panels/thumbnail.h"

void ResetPanels() {
  FreeThumbnails();
  layerPanel = {};
  mixerWindows = {};
  std::memset(swatches, 0, sizeof swatches);
}
