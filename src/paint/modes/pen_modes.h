// Pen modes: what a dab puts down. For each row of a dab the kernel of the
// current mode fills three rows (source colour, source opacity,
// protection) and names the kind of blend; BlendRow (blend_row.h) then
// lays them on the plane. Fill, paste and the other painters use the same
// two steps.
#pragma once

#include <cstdint>
#include <functional>

#include "base/rect.h"
#include "document/canvas.h"
#include "paint/modes/pen_rows.h"

// pen.mode values; the labels are strings 1600 to 1612.
enum PenMode : uint32_t {
  kModeColor = 0,
  kModeBlur = 1,
  kModeRub = 2,
  kModeStir = 3,
  kModeBlur2 = 4,
  kModeFilter = 5,
  kModeEraser = 6,
  kModeClone = 7,
  kModeNoise = 8,
  kModeClockwise = 9,
  kModeCounterclockwise = 10,
  kModeLayer = 11,
  kModeClipboard = 12,  // past the end of the dispatch: no kernel
};

// Kinds of blend, the kernel's answer to BlendRow.
enum BlendKind : int {
  kBlendOver = 0,       // colour over the plane; transparency takes the coverage
  kBlendReplace = 1,    // plain mix; transparency mixes towards the source opacity
  kBlendColorOnly = 2,  // plain mix; transparency untouched (never a kernel's)
};

// Grab buffers hold a tip box of at most this many pixels a side; a larger
// box paints nothing in the grabbing modes.
constexpr int kGrabSide = 290;
constexpr int kGrabPixels = 250100;

// The state of the kernels.
struct PenKernelsObject {
  uint8_t grabColor[kGrabPixels * 3];  // blue, green, red; row length = box width
  uint8_t grabProtect[kGrabPixels];    // 0 grabbed, 255 could not be read
  uint8_t grabOpacity[kGrabPixels];
  int32_t grabWidth = 0, grabHeight = 0;             // the box grabbed
  Plane* sourceTile = nullptr;                       // 24 bits, tiled by modes Filter and Layer
  int32_t cloneOffsetX = -2000, cloneOffsetY = -64;  // x below -1000: never set

  // Start state: no tile (a tile held is freed), clone offset unset.
  void Reset();
};

extern PenKernelsObject PenKernels;

// The tile of modes Filter and Layer: the result of the chosen filter, or
// a copy of a chosen layer. The previous tile is freed; null drops it.
void SetSourceTile(Plane* tile);

// Sources of mode Color that other subsystems provide. Each is empty until
// its subsystem fills it.
struct PenSources {
  // The colour row of the gradient over the box, for colorStyle 1. Without
  // it a gradient pen paints nothing.
  std::function<void(uint8_t* sourceRow, int y, int x0, int x1, const Rect& box)> gradientRow;
  // Cuts a coverage row, columns x0..x1 of line y, by the Tone Filter's
  // patterns over the box; with init the row is first filled with 255.
  // Without it no pattern is set: init fills, else the row stays.
  std::function<void(int y, int x0, int x1, const Rect& box, uint8_t* row, int init)> toneRow;
};
extern PenSources penSources;

// The Tone Filter applied to a coverage row (as registered, or none).
void CutByTone(int y, int x0, int x1, const Rect& box, uint8_t* row, int init);

// Fills the three rows for canvas columns x0..x1 of row y by the kernel of
// pen.mode, then adds the protection of the mask and further planes, the
// selection (during Fill or with "Mask Outside Selection") and the colour
// mask. The box is the whole dab's. Rows hold at least x1 - x0 + 1 pixels.
// Nothing is done for a row off the canvas; *outKind is then untouched.
void FetchModeRow(Canvas* canvas, uint8_t* sourceRow, uint8_t* sourceOpacityRow,
                  uint8_t* protectRow, int y, int x0, int x1, const Rect& box, int* outKind);
// The protection FetchModeRow ors into protectRow after the kernel, but
// for the colour mask: the layer's on an image plane, and the selection's
// during Fill or with "Mask Outside Selection".
void AddPlaneProtection(Canvas* canvas, uint8_t* protectRow, int y, int x0, int x1);
// The same protection written to out, as if ored into zeros, for rows y0
// to y0 + n - 1, row i at i * stride.
void PlaneProtection(Canvas* canvas, uint8_t* out, int y0, int n, int x0, int x1, int stride);
