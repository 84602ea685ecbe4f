// Which tip the next dab stamps, and its size.
#include <algorithm>
#include <cstring>

#include "paint/modes/pen_rows.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"

namespace {

enum class TipSource { Stamp, Dot, Generated };

bool Fits(const Plane* plane) {
  return int64_t(plane->width) * plane->height <= kTipBufferBytes;
}

// The stamp is the pattern image itself, in pen mode Color only. A plane
// too large for the tip buffers is never taken as a tip.
TipSource CurrentSource() {
  if (tipState.patternIsTip == 1 && pen.mode == 0 && pen.patternActive && pen.patternImage &&
      Fits(pen.patternImage))
    return TipSource::Stamp;
  if (tipState.dotTipActive) return TipSource::Dot;
  return TipSource::Generated;
}

const Plane* SourcePlane(TipSource source) {
  switch (source) {
    case TipSource::Stamp: return pen.patternImage;
    case TipSource::Dot: return tipState.dotTip && Fits(tipState.dotTip) ? tipState.dotTip : nullptr;
    case TipSource::Generated: break;
  }
  return pen.tipHigh;
}

void CopyRows(Plane* plane, uint8_t* out) {
  ReadPlaneRows(plane, 0, plane->height, 0, plane->width - 1, out, plane->width);
}

}  // namespace

void FetchTipRaster(uint8_t* highOut, uint8_t* lowOut, int* outWidth, int* outHeight) {
  TipSource source = CurrentSource();
  // A tip never built yet is built now, like an animated one.
  if (source == TipSource::Generated && (pen.tipAnimated || !pen.tipHigh)) BuildTip();
  const Plane* plane = SourcePlane(source);
  *outWidth = plane ? plane->width : 0;
  *outHeight = plane ? plane->height : 0;
  if (!plane) return;
  size_t area = size_t(plane->width) * plane->height;
  switch (source) {
    case TipSource::Stamp:
      std::memset(highOut, 255, area);
      if (lowOut) std::memset(lowOut, 255, area);
      break;
    case TipSource::Dot:
      CopyRows(tipState.dotTip, highOut);
      if (lowOut) std::memset(lowOut, 0, area);
      break;
    case TipSource::Generated:
      CopyRows(pen.tipHigh, highOut);
      if (lowOut) CopyRows(pen.tipLow, lowOut);
      break;
  }
}

double tipMinimum() {
  const Plane* plane = SourcePlane(CurrentSource());
  return plane ? double(std::min(plane->width, plane->height)) : 0.0;
}
