#include "display/view_layout.h"

#include "display/zoom.h"

namespace {

// A scroll below 0 becomes 0 and the window follows; above what the extent
// leaves beyond the window it becomes that, or 0 when nothing is left.
int ClampScroll(int32_t* scroll, int extent, int client) {
  const int shift = *scroll < 0 ? *scroll : 0;
  if (*scroll < 0) *scroll = 0;
  if (*scroll > extent - client) *scroll = extent - client < 0 ? 0 : extent - client;
  return shift;
}

// A canvas narrower than the window stands in its middle.
int Origin(int margin, int client, int extent) {
  return margin + (extent < client ? (client - extent) / 2 : 0);
}

}  // namespace

Rect FramePlacement(const Canvas* canvas, int documentWidth, int documentHeight) {
  return Rect::OfSize(canvas->marginX, canvas->marginY, documentWidth - 2 * canvas->marginX,
                      documentHeight - 2 * canvas->marginY);
}

int ViewOriginX(const Canvas* canvas) {
  return Origin(canvas->marginX, canvas->clientWidth, canvas->extentX);
}

int ViewOriginY(const Canvas* canvas) {
  return Origin(canvas->marginY, canvas->clientHeight, canvas->extentY);
}

ViewLayout LayOutView(Canvas* canvas, int clientWidth, int clientHeight) {
  canvas->clientWidth = clientWidth;
  canvas->clientHeight = clientHeight;
  const int width = ZoomedWidth(canvas);
  const int height = ZoomedHeight(canvas);
  canvas->extentX = width + 2 * canvas->marginX;
  canvas->extentY = height + 2 * canvas->marginY;
  ViewLayout layout{};
  layout.shiftX = ClampScroll(&canvas->scrollX, canvas->extentX, clientWidth);
  layout.shiftY = ClampScroll(&canvas->scrollY, canvas->extentY, clientHeight);
  layout.horizontal = {canvas->extentX - 1, clientWidth, canvas->scrollX};
  layout.vertical = {canvas->extentY - 1, clientHeight, canvas->scrollY};
  const int x = ViewOriginX(canvas);
  const int y = ViewOriginY(canvas);
  layout.display = Rect::OfSize(x - canvas->scrollX, y - canvas->scrollY, width, height);
  layout.hRuler = Rect::OfSize(x + canvas->marginX, 0, width, canvas->marginY - 1);
  layout.vRuler = Rect::OfSize(0, canvas->marginY + y, canvas->marginX - 1, height);
  return layout;
}
