// Shading of composed rows for the view: the outside of the selection, and
// everything outside the active plane's rectangle.
#include <cstdint>
#include <cstring>

#include "display/compose_modes.h"
#include "display/compose_rows.h"
#include "pixel/mul_table.h"
#include "settings/settings.h"

namespace {

constexpr int kOutsideCheck = 1;
constexpr int kOutsideDarken = 2;

// The shaded colour of c at canvas column x of row y.
uint8_t Shaded(int mode, unsigned c, int x, int y) {
  switch (mode) {
    case kOutsideCheck: {
      // Cells of 8 x 8 canvas pixels, so the pattern stays put on scrolling.
      const bool lit = ((x & 15) >= 8) == ((y & 15) >= 8);
      return static_cast<uint8_t>(((7 * c) >> 3) + (lit ? 32 : 0));
    }
    case kOutsideDarken: return static_cast<uint8_t>((3 * c) >> 2);
    default: return static_cast<uint8_t>(c);  // Hide still blends, and may round by one
  }
}

// The outside-coverage of the selection (0 inside, up to 255 outside) along
// the row: zeros where no selection raster lies.
void ReadOutsideRow(Canvas* canvas, int y, int x0, int x1, uint8_t* out) {
  std::memset(out, 0, static_cast<size_t>(x1 - x0 + 1));
  if (canvas->selectionPlane) ReadPlaneColumns(canvas->selectionPlane, y, x0, x1, 1, out);
}

void ShadeOutsideSelection(Canvas* canvas, int y, int x0, int x1, uint8_t* row) {
  uint8_t* outside = composeRows.plane;
  ReadOutsideRow(canvas, y, x0, x1, outside);
  const int mode = settings.outsideDisplay;
  for (int k = 0; k <= x1 - x0; ++k) {
    const unsigned m = outside[k];
    if (m == 0) continue;
    for (int c = 0; c < 3; ++c) {
      uint8_t& colour = row[3 * k + c];
      colour = Blend255(colour, Shaded(mode, colour, x0 + k, y), m);
    }
  }
}

void DarkenOutsideBoundary(const Canvas* canvas, int y, int x0, int x1, uint8_t* row) {
  const PlaneSlot& active = canvas->planes[canvas->activePlane];
  LayerSpan inside;
  if (!RowInLayer(active, y) || !SpanOfLayer(active, x0, x1, &inside)) inside = {0, -1};
  for (int k = 0; k <= x1 - x0; ++k) {
    if (k >= inside.first && k <= inside.last) continue;
    for (int c = 0; c < 3; ++c) row[3 * k + c] = static_cast<uint8_t>(row[3 * k + c] * 4 / 5);
  }
}

}  // namespace

bool ViewShadingApplies(const Canvas* canvas) {
  return canvas->selectionKind != 0 || settings.darkenOutsideBoundary != 0;
}

void ShadeRow(Canvas* canvas, int y, int x0, int x1, uint8_t* row) {
  if (canvas->selectionKind != 0) ShadeOutsideSelection(canvas, y, x0, x1, row);
  if (settings.darkenOutsideBoundary) DarkenOutsideBoundary(canvas, y, x0, x1, row);
}
