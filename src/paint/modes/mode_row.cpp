#include <algorithm>
#include <cstring>

#include "document/selection_rows.h"
#include "paint/modes/color_mask.h"
#include "paint/modes/mode_kernels.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/protection.h"
#include "paint/tip/pen_record.h"

PenKernelsObject PenKernels;
PenSources penSources;

void PenKernelsObject::Reset() {
  PlaneStore.FreePlane(&sourceTile);
  grabWidth = grabHeight = 0;
  cloneOffsetX = -2000;
  cloneOffsetY = -64;
}

void SetSourceTile(Plane* tile) {
  PlaneStore.FreePlane(&PenKernels.sourceTile);
  PenKernels.sourceTile = tile;
}

void CutByTone(int y, int x0, int x1, const Rect& box, uint8_t* row, int init) {
  if (penSources.toneRow)
    penSources.toneRow(y, x0, x1, box, row, init);
  else if (init)
    std::memset(row, 255, size_t(x1 - x0 + 1));
}

int PaintNothing(const ModeRows& rows, const RowSpan& span) {
  std::memset(rows.protect, 255, size_t(span.Count()));
  return kBlendReplace;
}

void ReadTiled(Plane* tile, int ty, int tx, int count, uint8_t* out) {
  for (int done = 0; done < count; tx = 0) {
    const int run = std::min(tile->width - tx, count - done);
    ReadPlaneSpan(tile, ty, tx, tx + run - 1, out + size_t(done) * tile->bytesPerPixel);
    done += run;
  }
}

int TileKernel(Canvas*, const ModeRows& rows, const RowSpan& span) {
  Plane* tile = PenKernels.sourceTile;
  // Without a tile the mode has nothing to put down.
  if (!tile || tile->bits != 24) return PaintNothing(rows, span);
  std::memset(rows.protect, 0, size_t(span.Count()));
  ReadTiled(tile, Wrap(span.y, tile->height), Wrap(span.x0, tile->width), span.Count(),
            rows.source);
  return kBlendOver;
}

namespace {

uint8_t planeProtection[kPenRowPixels];
uint8_t selectionProtection[kPenRowPixels];

}  // namespace

void PlaneProtection(Canvas* canvas, uint8_t* out, int y0, int n, int x0, int x1, int stride) {
  const int count = x1 - x0 + 1;
  if (ActiveIsImage(canvas))
    ReadProtectionRows(canvas, y0, n, x0, x1, out, stride, ActiveLayerBase(canvas));
  else
    ClearRows(out, n, size_t(count), stride);
  if (!protection.fillInProgress && !protection.maskOutsideSelection) return;
  for (int i = 0; i < n; ++i) {
    ReadSelectionRow(canvas, y0 + i, x0, x1, selectionProtection);
    OrRow(out + size_t(i) * stride, selectionProtection, count);
  }
}

void AddPlaneProtection(Canvas* canvas, uint8_t* protectRow, int y, int x0, int x1) {
  if (!ActiveIsImage(canvas) && !protection.fillInProgress && !protection.maskOutsideSelection)
    return;
  PlaneProtection(canvas, planeProtection, y, 1, x0, x1, 0);
  OrRow(protectRow, planeProtection, x1 - x0 + 1);
}

namespace {

int RunKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span, const Rect& box) {
  switch (pen.mode) {
    case kModeColor:
      return ColorKernel(canvas, rows, span, box);
    case kModeBlur:
      return BlurKernel(canvas, rows, span);
    case kModeRub:
    case kModeClockwise:
    case kModeCounterclockwise:
      return GrabKernel(canvas, rows, span, box);
    case kModeStir:
      return StirKernel(canvas, rows, span);
    case kModeBlur2:
      return Blur2Kernel(canvas, rows, span, box);
    case kModeFilter:
    case kModeLayer:
      return TileKernel(canvas, rows, span);
    case kModeEraser:
      return EraserKernel(canvas, rows, span);
    case kModeClone:
      return CloneKernel(canvas, rows, span);
    case kModeNoise:
      return NoiseKernel(canvas, rows, span);
    default:
      return -1;  // no kernel: the rows stay as the caller left them
  }
}

}  // namespace

void FetchModeRow(Canvas* canvas, uint8_t* sourceRow, uint8_t* sourceOpacityRow,
                  uint8_t* protectRow, int y, int x0, int x1, const Rect& box, int* outKind) {
  if (x0 > canvas->canvasWidth - 1 || y < 0 || y > canvas->canvasHeight - 1 || x1 < 0) return;
  const RowSpan span{y, x0, x1};
  if (span.Count() < 1 || span.Count() > kPenRowPixels - 2) return;
  const ModeRows rows{sourceRow, sourceOpacityRow, protectRow};
  const int kind = RunKernel(canvas, rows, span, box);
  if (kind >= 0) *outKind = kind;

  AddPlaneProtection(canvas, protectRow, y, x0, x1);
  if (ColorMaskActive())
    ApplyColorMask(canvas, protectRow, y, x0, x1, (box.left + box.right) / 2,
                   (box.top + box.bottom) / 2);
}
