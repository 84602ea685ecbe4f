#include "paint/stroke/stroke_dropper.h"

#include <algorithm>
#include <vector>

#include "display/compose.h"
#include "display/redraw.h"
#include "display/view_windows.h"
#include "display/zoom.h"
#include "paint/modes/pen_rows.h"
#include "paint/modes/protection.h"
#include "paint/stroke/stroke_loop.h"
#include "paint/stroke/stroke_windows.h"
#include "paint/tip/pen_record.h"
#include "pixel/hsv.h"
#include "platform/platform.h"
#include "settings/settings.h"

namespace {

struct Pick {
  int x, y;
  bool operator==(const Pick&) const = default;
};

void Cursor(const char* name) {
  if (strokeWindows.cursor) strokeWindows.cursor(name);
}

void ColourChanged() {
  if (strokeWindows.colourChanged) strokeWindows.colourChanged();
}

// The right button, Q or the context key; polled after the queue is drained.
bool PickHeld() {
  platform::DrainPointerMessages();
  return StrokeButtonHeld(1);
}

Pick PointerOnCanvasClamped(Canvas* canvas) {
  const platform::PointerPosition at = platform::PollPointer();
  return {std::clamp(ToCanvas(canvas, at.windowX), 0, canvas->canvasWidth - 1),
          std::clamp(ToCanvas(canvas, at.windowY), 0, canvas->canvasHeight - 1)};
}

// The image plane gives the colour of the picture as composed; another
// plane gives its value as the value of a pure red.
void TakeColour(Canvas* canvas, const Pick& at) {
  int r = 0, g = 0, b = 0, h = 0, s = 255, v = 0;
  if (ActiveIsImage(canvas)) {
    DibTile* tile = Compose(canvas, at.x, at.y, at.x, at.y, 0, 0);
    if (!tile) return;
    uint8_t bgr[3] = {0, 0, 0};
    ReadTileRow(tile, 0, 0, 0, bgr);
    FreeTile(&tile);
    b = bgr[0];
    g = bgr[1];
    r = bgr[2];
    RgbToHsv(r, g, b, &h, &s, &v, 0);
  } else {
    PlaneSlot& slot = ActiveSlot(canvas);
    uint8_t value = 0;
    if (slot.plane) ReadPlaneSpan(slot.plane, at.y - slot.top, at.x - slot.left, at.x - slot.left, &value);
    v = value;
    HsvToRgb(h, s, v, &r, &g, &b, 0);
  }
  pen.red = static_cast<uint32_t>(r);
  pen.green = static_cast<uint32_t>(g);
  pen.blue = static_cast<uint32_t>(b);
  pen.hue = static_cast<uint32_t>(h);
  pen.saturation = static_cast<uint32_t>(s);
  pen.value = static_cast<uint32_t>(v);
  ColourChanged();
}

// The corner under the pointer, kept on the active plane. A corner below
// the plane puts the plane's last row into x and leaves y alone; that is
// how the pick has always behaved.
Pick AreaCorner(Canvas* canvas) {
  const PlaneSlot& slot = ActiveSlot(canvas);
  const platform::PointerPosition at = platform::PollPointer();
  Pick p{ToCanvas(canvas, at.windowX), ToCanvas(canvas, at.windowY)};
  const int right = slot.left + slot.width - 1, bottom = slot.top + slot.height - 1;
  if (p.x < slot.left) p.x = slot.left;
  if (p.x > right) p.x = right;
  if (p.y < slot.top) p.y = slot.top;
  if (p.y > bottom) p.x = bottom;
  return p;
}

void InvertArea(Canvas* canvas, const Pick& a, const Pick& b) {
  if (!viewWindows.invertBox) return;
  viewWindows.invertBox(canvas, ViewRectOf(canvas, Rect{std::min(a.x, b.x), std::min(a.y, b.y),
                                                         std::max(a.x, b.x), std::max(a.y, b.y)}));
}

// The rows of the active plane inside the box become the pattern: the
// image as 24 bits, the layer's opacity beside it.
void TakePattern(Canvas* canvas, int x0, int y0, int x1, int y1) {
  const int width = x1 - x0 + 1, height = y1 - y0 + 1;
  const uint32_t kind = static_cast<uint32_t>(settings.workBuffer);
  Plane* image = PlaneStore.CreatePlane(width, height, 24, 255, 1, kind);
  if (!image) return;
  Plane* alpha = PlaneStore.CreatePlane(width, height, 8, 0, 0, kind);
  if (!alpha) {
    PlaneStore.FreePlane(&image);
    return;
  }
  std::vector<uint8_t> row(static_cast<size_t>(width) * 3);
  for (int y = 0; y < height; ++y) {
    std::fill(row.begin(), row.end(), 255);
    ReadImageRow(canvas, y0 + y, x0, x1, row.data());
    PlaneStore.WriteRow(image, y, 0, width - 1, row.data());
    ReadOpacityRow(canvas, y0 + y, x0, x1, row.data(), ActiveLayerBase(canvas));
    PlaneStore.WriteRow(alpha, y, 0, width - 1, row.data());
  }
  pen.patternImage = image;
  pen.patternAlpha = alpha;
  pen.patternActive = 1;
  tipState.patternIsTip = 0;
}

void PickArea(Canvas* canvas) {
  Cursor("cross");
  const Pick start = AreaCorner(canvas);
  Pick end = start;
  InvertArea(canvas, start, end);
  while (PickHeld()) {
    const Pick now = AreaCorner(canvas);
    if (now == end) continue;
    InvertArea(canvas, start, end);
    end = now;
    InvertArea(canvas, start, end);
  }
  InvertArea(canvas, start, end);
  Cursor(nullptr);
  pen.red = pen.green = pen.blue = 0;
  pen.hue = pen.saturation = pen.value = 0;
  TakePattern(canvas, std::min(start.x, end.x), std::min(start.y, end.y), std::max(start.x, end.x),
              std::max(start.y, end.y));
  ColourChanged();
}

}  // namespace

void RunDropper(Canvas* canvas) {
  PlaneStore.FreePlane(&pen.patternImage);
  PlaneStore.FreePlane(&pen.patternAlpha);
  pen.patternActive = 0;
  if (platform::KeyDown(platform::VkShift)) return PickArea(canvas);

  Cursor("spoit");
  bool picked = false;
  Pick last{};
  while (PickHeld()) {
    const Pick at = PointerOnCanvasClamped(canvas);
    if (picked && at == last) continue;
    picked = true;
    last = at;
    TakeColour(canvas, at);
  }
  Cursor(nullptr);
}
