#include "paint/stroke/stroke_engine.h"

#include <cstring>

StrokeEngineObject StrokeEngine;

// Field by field: a whole temporary of the object would put a megabyte of
// samples on the stack.
void StrokeEngineObject::Reset() {
  rightClickAction = kRightClickDropper;
  freehandQuality = 0;
  autoSmooth = 0;
  reflectOnThick = reflectOnDensity = reflectOnSize = 0;
  showOutline = 1;
  running = 0;
  std::memset(historyX, 0, sizeof historyX);
  std::memset(historyY, 0, sizeof historyY);
  historyCount = sumX = sumY = 0;
  std::memset(&savedPen, 0, sizeof savedPen);
  tabletSeen = 0;
  savedMode = -1;
  std::memset(strokeSamples, 0, sizeof strokeSamples);
}
