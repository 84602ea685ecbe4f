#include "paint/reset.h"

#include "paint/control/dot_tiles.h"
#include "paint/control/pen_options.h"
#include "paint/modes/place_dab.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/stroke/stroke_outline.h"
#include "paint/stroke/stroke_pressure.h"
#include "paint/stroke/stroke_windows.h"
#include "paint/tip/pen_data_list.h"
#include "paint/tip/pen_record.h"

void ResetPaint() {
  ResetPen();
  ResetPenModes();
  StrokeEngine.Reset();
  PenDataList.Reset();
  strokeWindows = {};
  penOutline = {};
  tabletLink = {};
  shapeFinish = kFinishSelection;
}
