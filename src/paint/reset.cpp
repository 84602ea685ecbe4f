#include "paint/reset.h"

#include "paint/dab_count.h"
#include "paint/dot_tiles.h"
#include "paint/pen_data_list.h"
#include "paint/pen_record.h"
#include "paint/place_dab.h"
#include "paint/stroke_engine.h"
#include "paint/stroke_outline.h"
#include "paint/stroke_pressure.h"
#include "paint/stroke_windows.h"

void ResetPaint() {
  ResetPen();
  ResetPenModes();
  StrokeEngine.Reset();
  PenDataList.Reset();
  strokeWindows = {};
  penOutline = {};
  tabletLink = {};
  dabCount = 0;
  dotTilePage = 0;
}
