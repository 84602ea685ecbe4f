// Rub and the two rotations work by pairs of dabs: an even dab grabs what
// lies under the tip and paints nothing, the odd one after puts it down
// where the tip is now (turned by 20 degrees for the rotations), which
// drags the picture along with the pen.
#include <cmath>
#include <cstring>

#include "paint/modes/mode_kernels.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/protection.h"
#include "paint/tip/pen_record.h"

namespace {

constexpr double kDegree = 0.017453292519943295;

int Grab(Canvas* canvas, const ModeRows& rows, const RowSpan& span, const Rect& box) {
  PenReadRow& read = readRows[0];
  ReadPenRow(canvas, span.y, span.x0, span.x1, read.color, read.opacity, read.ok);
  const int width = box.Width();
  PenKernels.grabWidth = width;
  PenKernels.grabHeight = box.Height();
  for (int i = 0; i < span.Count(); ++i) {
    const int column = span.x0 + i - box.left;
    const int row = span.y - box.top;
    if (column < 0 || column >= width || row < 0 || row >= box.Height()) continue;
    const int at = row * width + column;
    std::memcpy(PenKernels.grabColor + 3 * at, read.color + 3 * i, 3);
    PenKernels.grabOpacity[at] = read.opacity[i];
    PenKernels.grabProtect[at] = read.ok[i] ? 0 : 255;
  }
  // Nothing is painted; with the plane's own colour as source a pixel
  // without coverage keeps its colour too.
  ReadImageRow(canvas, span.y, span.x0, span.x1, rows.source);
  std::memset(rows.protect, 255, size_t(span.Count()));
  return kBlendOver;
}

// What the grab buffers hold at (column, row) of the grabbed box, or
// protection where that lies outside it.
void Drop(const ModeRows& rows, int i, int column, int row) {
  if (column < 0 || column >= PenKernels.grabWidth || row < 0 || row >= PenKernels.grabHeight) {
    rows.protect[i] = 255;
    return;
  }
  const int at = row * PenKernels.grabWidth + column;
  std::memcpy(rows.source + 3 * i, PenKernels.grabColor + 3 * at, 3);
  rows.opacity[i] = PenKernels.grabOpacity[at];
  rows.protect[i] = PenKernels.grabProtect[at];
}

int DropRub(Canvas* canvas, const ModeRows& rows, const RowSpan& span, const Rect& box) {
  for (int i = 0; i < span.Count(); ++i) Drop(rows, i, span.x0 + i - box.left, span.y - box.top);
  return KindOnPlane(canvas);
}

// Halves away from zero; 0 itself goes down and truncates back to 0.
int RoundHalfAway(double v) { return int(v > 0 ? v + 0.5 : v - 0.5); }

int DropTurned(const ModeRows& rows, const RowSpan& span, const Rect& box, double degrees) {
  const double angle = degrees * kDegree;
  const double sine = std::sin(angle), cosine = std::cos(angle);
  const int middleX = box.Width() / 2, middleY = box.Height() / 2;
  const int cy = span.y - box.top - middleY;
  for (int i = 0; i < span.Count(); ++i) {
    const int cx = span.x0 + i - box.left - middleX;
    const int u = RoundHalfAway(cy * sine + cx * cosine);
    const int v = RoundHalfAway(cy * cosine - cx * sine);
    Drop(rows, i, u + middleX, v + middleY);
  }
  return kBlendReplace;
}

}  // namespace

int GrabKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span, const Rect& box) {
  // The grab buffers hold no larger box: such a tip paints nothing.
  if (box.Width() > kGrabSide || box.Height() > kGrabSide) return PaintNothing(rows, span);
  if (tipState.dabCount % 2 == 0) return Grab(canvas, rows, span, box);
  switch (pen.mode) {
    case kModeClockwise:
      return DropTurned(rows, span, box, 20.0);
    case kModeCounterclockwise:
      return DropTurned(rows, span, box, -20.0);
    default:
      return DropRub(canvas, rows, span, box);
  }
}
