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

Rect ClampFramePlacement(int32_t framePosition, int32_t frameSize, int screenWidth,
                         int screenHeight) {
  const int width = std::min(std::max(UnsignedLow(frameSize), kMinFrameWidth), screenWidth);
  const int height = std::min(std::max(UnsignedHigh(frameSize), kMinFrameHeight), screenHeight);
  return Rect::OfSize(std::min(SignedLow(framePosition), screenWidth - width),
                      std::min(SignedHigh(framePosition), screenHeight - height), width, height);
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
