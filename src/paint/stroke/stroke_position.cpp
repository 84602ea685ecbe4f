#include "paint/stroke/stroke_position.h"

#include <algorithm>
#include <cmath>

#include "display/grid.h"
#include "display/zoom.h"
#include "paint/stroke/stroke_engine.h"
#include "platform/platform.h"
#include "settings/settings.h"

void SmoothPointerPosition(double* outX, double* outY, int first) {
  const platform::PointerPosition at = platform::PollPointer();
  StrokeEngineObject& e = StrokeEngine;
  if (first) {
    e.historyX[0] = e.sumX = at.screenX;
    e.historyY[0] = e.sumY = at.screenY;
    e.historyCount = 1;
    *outX = at.screenX;
    *outY = at.screenY;
    return;
  }
  // A damaged settings file must not take the history past its end.
  const int limit = std::clamp(settings.positionSmoothing, 1, kSmoothingHistory);
  int& count = e.historyCount;
  if (count >= limit) {
    e.sumX -= e.historyX[0];
    e.sumY -= e.historyY[0];
    std::copy(e.historyX + 1, e.historyX + count, e.historyX);
    std::copy(e.historyY + 1, e.historyY + count, e.historyY);
  } else {
    ++count;
  }
  e.historyX[count - 1] = at.screenX;
  e.historyY[count - 1] = at.screenY;
  e.sumX += at.screenX;
  e.sumY += at.screenY;
  *outX = static_cast<double>(e.sumX) / count;
  *outY = static_cast<double>(e.sumY) / count;
}

StrokePoint StrokePosition(Canvas* canvas, int first) {
  const platform::PointerPosition at = platform::PollPointer();
  if (canvas->gridOn && canvas->gridSnap) {
    const CanvasPoint snapped = ViewToCanvasPoint(canvas, at.windowX, at.windowY, 0, 0);
    return {static_cast<double>(snapped.x), static_cast<double>(snapped.y)};
  }
  double sx, sy;
  SmoothPointerPosition(&sx, &sy, first);
  const double wholeX = std::trunc(sx), wholeY = std::trunc(sy);
  const int viewX = static_cast<int>(wholeX) - (at.screenX - at.windowX);
  const int viewY = static_cast<int>(wholeY) - (at.screenY - at.windowY);
  return {ToCanvas(canvas, viewX) + (sx - wholeX), ToCanvas(canvas, viewY) + (sy - wholeY)};
}
