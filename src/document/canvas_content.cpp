#include "document/canvas_content.h"

#include "document/canvas_request.h"

namespace {
CanvasContentFill contentFills[kCanvasModeCount];
}  // namespace

void SetCanvasContentFill(int mode, CanvasContentFill fill) {
  if (mode > kModeNew && mode < kCanvasModeCount) contentFills[mode] = fill;
}

CanvasContentFill CanvasContentFillOf(int mode) {
  return mode > kModeNew && mode < kCanvasModeCount ? contentFills[mode] : nullptr;
}
