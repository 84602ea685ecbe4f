#include "paint/install.h"

#include "paint/stroke/stroke_routes.h"
#include "paint/tip/pen_state.h"
#include "paint/tip/tip.h"

void InstallPaint() {
  InstallStrokeEngine();
  LoadPenState();
  BuildTip();
}
