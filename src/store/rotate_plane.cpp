#include "store/rotate_plane.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

constexpr double kHair = 1e-9;

struct Turn {
  double c, s;
};

Turn TurnOf(double degrees) {
  const double radians = degrees * std::numbers::pi / 180.0;
  return {std::cos(radians), std::sin(radians)};
}

// A source row read whole, with `fill` one pixel beyond each end.
struct SourceRows {
  Plane* plane;
  int bpp;
  uint8_t fill;
  std::vector<std::vector<uint8_t>> rows;  // rows -1 .. height, padded
  const uint8_t* Pixel(int x, int y) const {
    return &rows[static_cast<size_t>(y + 1)][static_cast<size_t>(x + 1) * bpp];
  }
};

SourceRows ReadSource(Plane* plane, uint8_t fill) {
  SourceRows source{plane, static_cast<int>(plane->bytesPerPixel), fill, {}};
  const size_t width = static_cast<size_t>(plane->width + 2) * source.bpp;
  source.rows.assign(static_cast<size_t>(plane->height + 2), std::vector<uint8_t>(width, fill));
  for (int y = 0; y < plane->height; ++y)
    PlaneStore.ReadRow(plane, y, 0, plane->width - 1, &source.rows[y + 1][source.bpp]);
  return source;
}

// The bilinear value at a source position in 1/256 pixels; beyond the
// ring of fill around the source, fill.
void Sample(const SourceRows& source, int64_t sx, int64_t sy, uint8_t* out) {
  const int64_t x0 = sx >> 8, y0 = sy >> 8;
  const int fx = static_cast<int>(sx & 255), fy = static_cast<int>(sy & 255);
  if (x0 < -1 || y0 < -1 || x0 >= source.plane->width || y0 >= source.plane->height) {
    std::fill(out, out + source.bpp, source.fill);
    return;
  }
  const int x = static_cast<int>(x0), y = static_cast<int>(y0);
  const uint8_t* p00 = source.Pixel(x, y);
  const uint8_t* p10 = source.Pixel(x + 1, y);
  const uint8_t* p01 = source.Pixel(x, y + 1);
  const uint8_t* p11 = source.Pixel(x + 1, y + 1);
  for (int c = 0; c < source.bpp; ++c) {
    const int top = p00[c] * (256 - fx) + p10[c] * fx;
    const int bottom = p01[c] * (256 - fx) + p11[c] * fx;
    out[c] = static_cast<uint8_t>((top * (256 - fy) + bottom * fy + 32768) >> 16);
  }
}

}  // namespace

void RotatedSize(int width, int height, double degrees, int* outWidth, int* outHeight) {
  const Turn t = TurnOf(degrees);
  const double w = std::fabs(width * t.c) + std::fabs(height * t.s);
  const double h = std::fabs(width * t.s) + std::fabs(height * t.c);
  *outWidth = std::max(1, static_cast<int>(std::ceil(w - kHair)));
  *outHeight = std::max(1, static_cast<int>(std::ceil(h - kHair)));
}

Plane* RotatePlane(Plane* source, double degrees, int width, int height, uint8_t fill,
                   uint32_t kind) {
  if (source->bits != 8 && source->bits != 24) return nullptr;
  Plane* plane = PlaneStore.CreatePlane(width, height, static_cast<int>(source->bits), 0, 0, kind);
  if (!plane) return nullptr;
  const SourceRows rows = ReadSource(source, fill);
  const Turn t = TurnOf(degrees);
  std::vector<uint8_t> row(static_cast<size_t>(width) * rows.bpp);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      // Back from the centre of the output pixel to the source.
      const double dx = x + 0.5 - width / 2.0, dy = y + 0.5 - height / 2.0;
      const double sx = t.c * dx + t.s * dy + source->width / 2.0 - 0.5;
      const double sy = -t.s * dx + t.c * dy + source->height / 2.0 - 0.5;
      Sample(rows, std::llround(sx * 256), std::llround(sy * 256),
             &row[static_cast<size_t>(x) * rows.bpp]);
    }
    PlaneStore.WriteRow(plane, y, 0, width - 1, row.data());
  }
  return plane;
}
