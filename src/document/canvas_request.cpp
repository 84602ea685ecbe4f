#include "document/canvas_request.h"

#include <cstring>

CanvasRequestRecord CanvasRequest;

void RequestBlankCanvas(int width, int height, int dpi) {
  std::memset(&CanvasRequest, 0, sizeof CanvasRequest);
  CanvasRequest.mode = kModeNew;
  CanvasRequest.layerCount = 1;
  CanvasRequest.planeCount[0] = 2;
  CanvasRequest.width[0] = width;
  CanvasRequest.height[0] = height;
  CanvasRequest.bits[0] = 24;
  CanvasRequest.dpi = dpi;
}
