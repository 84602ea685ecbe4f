#include "shell/frame_geometry.h"

#include <algorithm>

#include "display/zoom.h"

namespace {

int cascadePosition = 0;

// The halves of a saved word: a position may be negative, a size not.
int SignedLow(int32_t word) { return static_cast<int16_t>(word & 0xFFFF); }
int SignedHigh(int32_t word) { return static_cast<int16_t>((word >> 16) & 0xFFFF); }
int UnsignedLow(int32_t word) { return word & 0xFFFF; }
int UnsignedHigh(int32_t word) { return (word >> 16) & 0xFFFF; }

}  // namespace

WindowRect ClampFramePlacement(int32_t framePosition, int32_t frameSize, int screenWidth,
                               int screenHeight) {
  WindowRect r{SignedLow(framePosition), SignedHigh(framePosition), UnsignedLow(frameSize),
               UnsignedHigh(frameSize)};
  r.width = std::min(std::max(r.width, kMinFrameWidth), screenWidth);
  r.height = std::min(std::max(r.height, kMinFrameHeight), screenHeight);
  r.x = std::min(r.x, screenWidth - r.width);
  r.y = std::min(r.y, screenHeight - r.height);
  return r;
}

int NextCascadePosition() {
  const int position = cascadePosition;
  cascadePosition += kCascadeStep;
  if (cascadePosition > kCascadeLimit) cascadePosition = 0;
  return position;
}

void ResetCascade() { cascadePosition = 0; }

WindowSize ZoomedCanvasSize(const Canvas* canvas) {
  return {ZoomedWidth(canvas), ZoomedHeight(canvas)};
}

WindowSize FitDocumentWindow(WindowSize zoomed, int marginX, int marginY, int border, int caption,
                             int mdiWidth, int mdiHeight) {
  return {std::min(zoomed.width + 4 * marginX + 2 * border, mdiWidth),
          std::min(zoomed.height + 4 * marginY + caption + 2 * border, mdiHeight)};
}
