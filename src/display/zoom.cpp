#include "display/zoom.h"

#include <algorithm>

namespace {

int ClampStep(int zoomStep) { return std::clamp(zoomStep, kMinZoomStep, kMaxZoomStep); }

}  // namespace

ZoomRatio ZoomRatioOf(int zoomStep) {
  switch (ClampStep(zoomStep)) {
    case -3:
      return {1, 4};
    case -2:
      return {1, 2};
    case -1:
      return {2, 3};
    case 0:
      return {1, 1};
    case 1:
      return {3, 2};
    default:
      return {ClampStep(zoomStep), 1};
  }
}

std::string ZoomText(int zoomStep) {
  switch (ClampStep(zoomStep)) {
    case -3:
      return "25%";
    case -2:
      return "50%";
    case -1:
      return "75%";
    case 1:
      return "150%";
    default:
      return std::to_string(std::max(ClampStep(zoomStep), 1) * 100) + "%";
  }
}

ZoomReadout ZoomReadoutOf(int zoomStep) {
  const int step = ClampStep(zoomStep);
  if (step > 0) return {ZoomText(step), 0xFF, 0xFF, 0x64};
  if (step < 0) return {ZoomText(step), 0x64, 0xFF, 0xFF};
  return {ZoomText(step), 0xFF, 0xFF, 0xFF};
}

int ToView(const Canvas* canvas, int v, int centre) {
  if (canvas->zoomStep == 0) return v;
  const ZoomRatio r = ZoomRatioOf(canvas->zoomStep);
  if (r.num == 1) return v / r.den;
  if (r.den == 1) return v * r.num + (centre ? r.num / 2 : 0);
  return v * r.num / r.den;
}

int ToCanvas(const Canvas* canvas, int v) {
  if (canvas->zoomStep == 0) return v;
  const ZoomRatio r = ZoomRatioOf(canvas->zoomStep);
  if (r.num == 1) return v * r.den;
  if (r.den == 1) return v / r.num;
  return v * r.den / r.num;
}

// The size follows the same cases as a conversion without centring.
int ZoomedWidth(const Canvas* canvas) { return ToView(canvas, canvas->canvasWidth); }
int ZoomedHeight(const Canvas* canvas) { return ToView(canvas, canvas->canvasHeight); }
