// The kernels of the pen modes, one per family, as FetchModeRow runs them.
// Each fills the rows for canvas columns x0..x1 of row y and returns the
// kind of blend.
#pragma once

#include "base/rect.h"
#include <cstdint>

#include "document/canvas.h"
#include "document/canvas_rows.h"
#include "paint/modes/pen_rows.h"

struct ModeRows {
  uint8_t* source;  // blue, green, red
  uint8_t* opacity;
  uint8_t* protect;
};

struct RowSpan {
  int y, x0, x1;
  int Count() const { return x1 - x0 + 1; }
};

// A row of the picture as the kernels read it (ReadPenRow), wide enough
// for a row of the pipeline and a column each side.
struct PenReadRow {
  uint8_t color[kPenRowPixels * 3];
  uint8_t opacity[kPenRowPixels];
  uint8_t ok[kPenRowPixels];
};
// Scratch of the kernels; one kernel runs at a time.
extern PenReadRow readRows[3];

// Kind 1 on an image plane, else 0: what the sampling modes ask for.
inline int KindOnPlane(const Canvas* canvas) {
  return ActiveIsImage(canvas) ? 1 : 0;
}

// Protection 255 over the row with a plain mix: the plane stays as it is.
int PaintNothing(const ModeRows& rows, const RowSpan& span);
// x modulo m, never negative.
inline int Wrap(int x, int m) { return ((x % m) + m) % m; }
// Fills a colour row from a tile, starting at row ty, column tx, and
// wrapping to column 0 at the tile's right edge.
void ReadTiled(Plane* tile, int ty, int tx, int count, uint8_t* out);

int ColorKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span, const Rect& box);
// Whether the pen is of mode Color with the flat colour, uncut: its kernel
// then gives every row the pen's colour and no protection, reading nothing.
bool FlatColorKernel();
// The pen's colour over count pixels.
void FillColor(uint8_t* row, int count);
int TileKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span);
int BlurKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span);
int Blur2Kernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span, const Rect& box);
int StirKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span);
int EraserKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span);
int CloneKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span);
int NoiseKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span);
// Rub and the two rotations: grab on an even dabCount, drop on an odd one.
int GrabKernel(Canvas* canvas, const ModeRows& rows, const RowSpan& span, const Rect& box);
