// BuildTip: the generated tip of the pen's shape and radii, into the pen's
// two 8-bit rasters.
#include <algorithm>

#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "paint/tip/tip_shapes.h"

namespace {

// Divisors of the soft shapes; 0 for the others. Shapes 3 to 5 are the
// inverted ones.
constexpr double kSoftDivisor[kTipShapeCount] = {3.0, 2.0, 1.0, 3.0, 2.0, 1.0, 0, 0,
                                                 0,   0,   0,   0,   0,   0,   0, 0.5};
constexpr uint32_t kSoftRaysPeak = 65565;  // kept as it always was; not 65535
constexpr uint32_t kSoftChordsPeak = 65535;

bool IsInverted(int shape) { return shape >= 3 && shape <= 5; }
bool IsAnimated(int shape) { return (shape >= 6 && shape <= 9) || (shape >= 12 && shape <= 14); }

void DrawShape(int shape, TipRaster& tip, const TipGeometry& g) {
  switch (shape) {
    case 6: SprayTip(tip, g); break;
    case 7: LifeTip(tip, g, tipState.dabCount); break;
    case 8: RaysTip(tip, g, 0); break;
    case 9: ChordsTip(tip, g, 0); break;
    case 10: BlockTip(tip, g); break;
    case 11: FrameTip(tip); break;
    case 12: RaysTip(tip, g, kSoftRaysPeak); break;
    case 13: SoftSprayTip(tip, g); break;
    case 14: ChordsTip(tip, g, kSoftChordsPeak); break;
    default: SoftTip(tip, g, kSoftDivisor[shape], IsInverted(shape)); break;
  }
}

Plane* RasterPlane(const TipRaster& tip, const std::vector<uint8_t>& bytes) {
  Plane* plane = PlaneStore.CreatePlane(tip.width, tip.height, 8, 0, 1, Physical);
  if (!plane) return nullptr;
  for (int y = 0; y < tip.height; ++y)
    PlaneStore.WriteRow(plane, y, 0, tip.width - 1, bytes.data() + size_t(y) * tip.width);
  return plane;
}

}  // namespace

int BuildTip() {
  TipGeometry g;
  g.rx = ClampTipRadius(pen.radiusX);
  g.ry = ClampTipRadius(pen.radiusY);
  g.ix = int32_t(g.rx);
  g.iy = int32_t(g.ry);
  g.rxSquared = g.ix * g.ix;
  g.rySquared = g.iy * g.iy;
  g.product = g.rxSquared * g.rySquared;
  pen.radiusXSquared = g.rxSquared;
  pen.radiusYSquared = g.rySquared;
  pen.radiusProduct = g.product;
  int shape = std::clamp(pen.tipShape, 0, kTipShapeCount - 1);
  pen.tipAnimated = IsAnimated(shape) ? 1 : 0;

  PlaneStore.FreePlane(&pen.tipHigh);
  PlaneStore.FreePlane(&pen.tipLow);
  TipRaster tip((g.ix + 1) * 2, (g.iy + 1) * 2);  // at least 2 x 2
  DrawShape(shape, tip, g);
  pen.tipHigh = RasterPlane(tip, tip.high);
  pen.tipLow = RasterPlane(tip, tip.low);
  if (pen.tipHigh && pen.tipLow) return 1;
  PlaneStore.FreePlane(&pen.tipHigh);
  PlaneStore.FreePlane(&pen.tipLow);
  return 0;
}
