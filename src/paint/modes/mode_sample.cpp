// The modes that take their colour from the plane itself: Blur, Blur 2,
// Stir, Eraser, Clone and Noise.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "document/selection_rows.h"
#include "paint/modes/mode_kernels.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/protection.h"

PenReadRow readRows[3];

namespace {

// The rows of the kernel from what ReadPenRow gave: refused pixels are
// protected.
void TakeRead(const ModeRows& rows, const PenReadRow& read, int count) {
  std::memcpy(rows.source, read.color, size_t(count) * 3);
  std::memcpy(rows.opacity, read.opacity, size_t(count));
  for (int i = 0; i < count; ++i) rows.protect[i] = read.ok[i] ? 0 : 255;
}

}  // namespace

int BlurKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span) {
  for (int r = 0; r < 3; ++r)
    ReadPenRow(canvas, span.y - 1 + r, span.x0 - 1, span.x1 + 1, readRows[r].color,
               readRows[r].opacity, readRows[r].ok);
  for (int i = 0; i < span.Count(); ++i) {
    // Left, right, centre, above, below: (row, column in the read rows).
    const int points[5][2] = {{1, i}, {1, i + 2}, {1, i + 1}, {0, i + 1}, {2, i + 1}};
    unsigned n = 0, sum[4] = {0, 0, 0, 0};
    for (const auto& [r, k] : points) {
      if (!readRows[r].ok[k]) continue;
      ++n;
      for (int c = 0; c < 3; ++c) sum[c] += readRows[r].color[3 * k + c];
      sum[3] += readRows[r].opacity[k];
    }
    if (n == 0) {
      rows.protect[i] = 255;
      continue;
    }
    for (int c = 0; c < 3; ++c) rows.source[3 * i + c] = uint8_t((sum[c] + n / 2) / n);
    rows.opacity[i] = uint8_t((sum[3] + n / 2) / n);
    rows.protect[i] = 0;
  }
  return kBlendReplace;
}

int Blur2Kernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span, const Rect& box) {
  const PlaneSlot& active = ActiveSlot(canvas);
  // Only pixels of the plane can be read and counted.
  const int x0 = std::max(box.left, active.left);
  const int x1 = std::min({box.right, active.left + active.width - 1, x0 + kPenRowPixels - 1});
  const int y0 = std::max(box.top, active.top);
  const int y1 = std::min(box.bottom, active.top + active.height - 1);
  const bool image = ActiveIsImage(canvas);
  PenReadRow& read = readRows[0];
  uint8_t* excluded = readRows[1].ok;
  uint64_t sum[4] = {0, 0, 0, 0}, count = 0;
  for (int y = y0; y <= y1 && x0 <= x1; ++y) {
    const int n = x1 - x0 + 1;
    if (image)
      ReadProtectionRow(canvas, y, x0, x1, excluded, ActiveLayerBase(canvas));
    else
      std::memset(excluded, 0, size_t(n));
    if (protection.maskOutsideSelection) {
      ReadSelectionRow(canvas, y, x0, x1, readRows[2].ok);
      OrRow(excluded, readRows[2].ok, n);
    }
    ReadImageRow(canvas, y, x0, x1, read.color);
    ReadLayerPlaneRow(canvas, y, x0, x1, read.opacity, kTransparencyPosition);
    for (int i = 0; i < n; ++i) {
      if (excluded[i]) continue;
      for (int c = 0; c < 3; ++c) sum[c] += read.color[3 * i + c];
      sum[3] += read.opacity[i];
      ++count;
    }
  }
  const int n = span.Count();
  if (count == 0) {
    std::memset(rows.source, 255, size_t(n) * 3);
    std::memset(rows.protect, 255, size_t(n));
    return kBlendReplace;
  }
  uint8_t mean[3];
  for (int c = 0; c < 3; ++c) mean[c] = uint8_t((sum[c] + count / 2) / count);
  for (int i = 0; i < n; ++i) std::memcpy(rows.source + 3 * i, mean, 3);
  std::memset(rows.opacity, int(sum[3] / count), size_t(n));
  std::memset(rows.protect, 0, size_t(n));
  return kBlendReplace;
}

int StirKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span) {
  for (int i = 0; i < span.Count(); ++i) {
    const int dx = (std::rand() & 63) - 32;
    const int dy = (std::rand() & 63) - 32;
    uint32_t red, green, blue, opacity;
    if (!ReadPenPixel(canvas, span.x0 + i + dx, span.y + dy, &red, &green, &blue, &opacity)) {
      rows.protect[i] = 255;
      continue;
    }
    const uint8_t pixel[3] = {uint8_t(blue), uint8_t(green), uint8_t(red)};
    std::memcpy(rows.source + 3 * i, pixel, 3);
    rows.opacity[i] = uint8_t(opacity);
    rows.protect[i] = 0;
  }
  return KindOnPlane(canvas);
}

int EraserKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span) {
  ReadImageRow(canvas, span.y, span.x0, span.x1, rows.source);
  std::memset(rows.protect, 0, size_t(span.Count()));
  std::memset(rows.opacity, 0, size_t(span.Count()));
  return kBlendReplace;
}

int CloneKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span) {
  const int dx = PenKernels.cloneOffsetX, dy = PenKernels.cloneOffsetY;
  PenReadRow& read = readRows[0];
  ReadPenRow(canvas, span.y + dy, span.x0 + dx, span.x1 + dx, read.color, read.opacity, read.ok);
  TakeRead(rows, read, span.Count());
  return kBlendReplace;
}

int NoiseKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span) {
  ReadImageRow(canvas, span.y, span.x0, span.x1, rows.source);
  std::memset(rows.protect, 0, size_t(span.Count()));
  for (int i = 0; i < span.Count(); ++i)
    for (int c = 2; c >= 0; --c) {  // red, green, blue
      uint8_t& channel = rows.source[3 * i + c];
      channel = uint8_t(std::clamp(int(channel) + std::rand() % 33 - 16, 0, 255));
    }
  return kBlendOver;
}
