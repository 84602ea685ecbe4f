// The pen: one block of 106 consecutive 32-bit words that the stroke engine
// copies whole around each dab, so that pressure can bend it and put it
// back. The named fields stand in this order; the spare words keep the
// block its size. Pointers and doubles take two words each, placed on an
// 8-byte boundary so the block's layout is the same in both builds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "store/plane_store.h"

constexpr int kPenRecordWords = 106;
constexpr double kMaxTipRadius = 127.0;

struct PenRecord {
  uint32_t red, green, blue;             // pen colour, 0..255
  uint32_t hue, saturation, value;       // the same colour as the mixer edits it
  uint32_t patternActive;                // a pattern image replaces the flat colour
  uint32_t alignPattern;                 // keeps the pointers on 8 bytes
  Plane* patternImage;                   // 24 bits
  Plane* patternAlpha;                   // 8 bits, may be null
  uint32_t colorStyle;                   // 0 flat or pattern, 1 gradient
  uint32_t mode;                         // pen mode
  uint32_t colorThickness;               // C/Thick, 0..255
  uint32_t density;                      // 0..255
  double radiusX, radiusY;               // tip radii, 0..127
  int32_t radiusXSquared, radiusYSquared, radiusProduct;
  int32_t tipSlider;                     // the bar under the tip preview; not used to paint
  int32_t tipShape;                      // 0..15
  int32_t alignTip;                      // keeps the pointers on 8 bytes
  Plane* tipHigh;                        // 8 bits: high bytes of a 16-bit strength
  Plane* tipLow;                         // 8 bits: low bytes
  int32_t tipAnimated;                   // the tip is rebuilt before every dab
  uint32_t spare[75];
};

static_assert(sizeof(PenRecord) == kPenRecordWords * 4);
static_assert(std::is_trivially_copyable_v<PenRecord>);
static_assert(std::is_standard_layout_v<PenRecord>);
static_assert(offsetof(PenRecord, red) == 0);
static_assert(offsetof(PenRecord, green) == 4);
static_assert(offsetof(PenRecord, blue) == 8);
static_assert(offsetof(PenRecord, hue) == 12);
static_assert(offsetof(PenRecord, saturation) == 16);
static_assert(offsetof(PenRecord, value) == 20);
static_assert(offsetof(PenRecord, patternActive) == 24);
static_assert(offsetof(PenRecord, patternImage) == 32);
static_assert(offsetof(PenRecord, patternAlpha) == 40);
static_assert(offsetof(PenRecord, colorStyle) == 48);
static_assert(offsetof(PenRecord, mode) == 52);
static_assert(offsetof(PenRecord, colorThickness) == 56);
static_assert(offsetof(PenRecord, density) == 60);
static_assert(offsetof(PenRecord, radiusX) == 64);
static_assert(offsetof(PenRecord, radiusY) == 72);
static_assert(offsetof(PenRecord, radiusXSquared) == 80);
static_assert(offsetof(PenRecord, radiusYSquared) == 84);
static_assert(offsetof(PenRecord, radiusProduct) == 88);
static_assert(offsetof(PenRecord, tipSlider) == 92);
static_assert(offsetof(PenRecord, tipShape) == 96);
static_assert(offsetof(PenRecord, tipHigh) == 104);
static_assert(offsetof(PenRecord, tipLow) == 112);
static_assert(offsetof(PenRecord, tipAnimated) == 120);
static_assert(offsetof(PenRecord, spare) == 124);

// The current pen.
extern PenRecord pen;

// Beside the record: the tip that stands in for the record's shape, the
// dot pen panel's state and where in the stroke a dab falls.
struct TipState {
  Plane* dotTip = nullptr;   // 8 bits: the current dot pen or text tip
  int32_t dotTipActive = 0;  // dotTip is the tip in use
  int32_t patternIsTip = 0;  // the pattern image is a stamp
  int32_t dotPenPanel = 0;   // the dot pen panel is the one in use
  int32_t dotTilePage = 0;   // the page of the family's files that its tiles show
  // Dabs placed in the current stroke: 0 when a stroke starts, read by what
  // must know where in the stroke a dab falls (the life tip, the scatter,
  // the grab-and-drop pen modes).
  int32_t dabCount = 0;
};
extern TipState tipState;

// A radius brought into 0..127; anything not above 0, NaN too, gives 0.
inline double ClampTipRadius(double r) {
  return r > kMaxTipRadius ? kMaxTipRadius : r > 0 ? r : 0.0;
}

// Back to the start state: pen colour black, full C/Thick and density,
// round soft tip of radius 0; every raster freed.
void ResetPen();
