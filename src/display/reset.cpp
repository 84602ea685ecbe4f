#include "display/reset.h"

#include "display/compose_rows.h"
#include "display/pointer_routing.h"
#include "display/smooth_zoom.h"
#include "display/smooth_zoom_choice.h"
#include "display/smooth_zoom_frame.h"
#include "display/view_paint.h"
#include "display/view_windows.h"

void ResetDisplay() {
  viewWindows = {};
  pointerRoutes = {};
  pressHooks.Clear();
  for (uint8_t* buffer : {composeRows.sources, composeRows.coverages, composeRows.plane,
                          composeRows.bounce})
    delete[] buffer;
  composeRows = {};
  smoothZoomChoice = kNoChoice;
  smoothZoomFolder.clear();
  zoomFrameDoneHooks.Clear();
}
