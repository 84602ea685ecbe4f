#include "panels/reset.h"

#include "panels/layer_rows.h"
#include "panels/thumbnail.h"

void ResetPanels() {
  FreeThumbnails();
  layerPanel = {};
}
