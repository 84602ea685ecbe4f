#include "compose_reference.h"

#include <algorithm>
#include <cstdlib>

#include "settings/settings.h"

namespace ref {
namespace {

struct Colour {
  unsigned c[3];  // blue, green, red
};

// Whole stored rows: every storage kind gives the same bytes for them.
std::vector<uint8_t> WholeRow(Plane* plane, int y) {
  std::vector<uint8_t> row(static_cast<size_t>(plane->width) * plane->bytesPerPixel);
  PlaneStore.ReadRow(plane, y, 0, plane->width - 1, row.data());
  return row;
}

unsigned Value8(Plane* plane, int x, int y) { return WholeRow(plane, y)[x]; }
Colour Value24(Plane* plane, int x, int y) {
  std::vector<uint8_t> row = WholeRow(plane, y);
  return {{row[3 * x], row[3 * x + 1], row[3 * x + 2]}};
}

bool Inside(const PlaneSlot& slot, int x, int y) {
  return x >= slot.left && x < slot.left + slot.width && y >= slot.top &&
         y < slot.top + slot.height;
}

Colour Background() {
  return {{unsigned(settings.backgroundBlue), unsigned(settings.backgroundGreen),
           unsigned(settings.backgroundRed)}};
}

Colour Blended(const Canvas& canvas, int x, int y, bool baseOpaque) {
  Colour acc = Background();
  bool baseTaken = !baseOpaque;
  for (int layer = 0; layer < kMaxLayers; ++layer) {
    const PlaneSlot* slots = &canvas.planes[layer * 8];
    if (!slots[0].plane) break;
    if (y < slots[0].top || y >= slots[0].top + slots[0].height || slots[0].mixMode < 1) continue;
    bool first = !baseTaken;
    baseTaken = true;
    if (!Inside(slots[0], x, y)) continue;
    int lx = x - slots[0].left, ly = y - slots[0].top;
    Colour s = Value24(slots[0].plane, lx, ly);
    if (first) acc = s;
    for (int position = 1; position < 8 && slots[position].plane; ++position)
      if (slots[position].planeFlags[4]) {
        unsigned p = Value8(slots[position].plane, lx, ly);
        for (unsigned& c : s.c) c = Mul(c, p);
      }
    unsigned m = Coverage(canvas, layer, x, y);
    int mode = slots[0].mixMode;
    if (mode > 9) continue;
    unsigned a = Mul(m, 255 - slots[0].opacityLoss);
    uint8_t sb[3], db[3], tb[3];
    for (int i = 0; i < 3; ++i) sb[i] = uint8_t(s.c[i]), db[i] = uint8_t(acc.c[i]);
    ModePixel(mode, sb, db, tb);
    const Colour t{{tb[0], tb[1], tb[2]}};
    for (int i = 0; i < 3; ++i) acc.c[i] = Blend(acc.c[i], t.c[i], a);
  }
  return acc;
}

Colour ThisLayer(const Canvas& canvas, int x, int y) {
  Colour acc = Background();
  int layer = canvas.activePlane / 8;
  const PlaneSlot& image = canvas.planes[layer * 8];
  if (image.plane && Inside(image, x, y)) {
    Colour s = Value24(image.plane, x - image.left, y - image.top);
    unsigned m = Coverage(canvas, layer, x, y);
    for (int i = 0; i < 3; ++i) acc.c[i] = Blend(acc.c[i], s.c[i], m);
  }
  return acc;
}

Colour OnePlane(const Canvas& canvas, int x, int y) {
  const PlaneSlot& active = canvas.planes[canvas.activePlane];
  const int position = canvas.activePlane % 8;
  const bool inside = Inside(active, x, y);
  unsigned p = inside ? Value8(active.plane, x - active.left, y - active.top) : 0;
  unsigned shown = position == 2 ? 255 - p : p;
  Colour c = ThisLayer(canvas, x, y);
  switch (active.displayMode) {
    case 10:
      if (inside) {
        c.c[0] = (c.c[0] + c.c[1] + c.c[2]) / 3;
        bool green = position >= 3 && (active.planeFlags[2] || active.planeFlags[3]);
        c.c[1] = green ? p : 0;
        c.c[2] = green ? 0 : p;
      }
      return c;
    case 11:
      if (!inside) return {{0, 0, 0}};
      for (unsigned& v : c.c) v = Mul(v, 255 - shown) + Mul(0, shown);
      return c;
    default:
      return inside ? Colour{{shown, shown, shown}} : Colour{{0, 0, 0}};
  }
}

unsigned ShadedChannel(unsigned c, int x, int y) {
  switch (settings.outsideDisplay) {
    case 1: {
      int mx = ((x % 16) + 16) % 16, my = ((y % 16) + 16) % 16;
      return ((7 * c) >> 3) + ((mx >= 8) == (my >= 8) ? 32 : 0);
    }
    case 2: return (3 * c) >> 2;
    default: return c;
  }
}

void Shade(const Canvas& canvas, Colour& colour, int x, int y) {
  if (canvas.selectionKind != 0) {
    unsigned m = 0;
    Plane* selection = canvas.selectionPlane;
    if (selection && x >= 0 && y >= 0 && x < selection->width && y < selection->height)
      m = Value8(selection, x, y);
    if (m != 0)
      for (unsigned& c : colour.c) c = Blend(c, ShadedChannel(c, x, y), m);
  }
  if (settings.darkenOutsideBoundary && !Inside(canvas.planes[canvas.activePlane], x, y))
    for (unsigned& c : colour.c) c = c * 4 / 5;
}

}  // namespace

unsigned Coverage(const Canvas& canvas, int layer, int x, int y) {
  const PlaneSlot* slots = &canvas.planes[layer * 8];
  int lx = x - slots[0].left, ly = y - slots[0].top;
  unsigned m = 255;
  if (slots[2].plane && !slots[2].planeOff) m = Value8(slots[2].plane, lx, ly);
  for (int position = 3; position < 8; ++position) {
    const PlaneSlot& slot = slots[position];
    if (!slot.plane || slot.planeOff) continue;
    unsigned p = Value8(slot.plane, lx, ly);
    if (slot.planeFlags[2]) m = Mul(m, p);
    if (slot.planeFlags[3]) m = Mul(m, 255 - p);
  }
  return m;
}

Picture Compose(const Canvas& canvas, int x0, int y0, int x1, int y1, bool shade, bool baseOpaque) {
  Picture picture;
  picture.width = x1 - x0 + 1;
  picture.height = y1 - y0 + 1;
  picture.bytes.resize(3 * static_cast<size_t>(picture.width) * picture.height);
  const int displayMode = canvas.planes[canvas.activePlane].displayMode;
  for (int y = y0; y <= y1; ++y)
    for (int x = x0; x <= x1; ++x) {
      Colour c = displayMode == 0                       ? ThisLayer(canvas, x, y)
                 : displayMode == 1 || displayMode == 12 ? Blended(canvas, x, y, baseOpaque)
                                                         : OnePlane(canvas, x, y);
      if (shade) Shade(canvas, c, x, y);
      uint8_t* out = picture.At(x - x0, y - y0);
      for (int i = 0; i < 3; ++i) out[i] = static_cast<uint8_t>(c.c[i]);
    }
  return picture;
}

}  // namespace ref
