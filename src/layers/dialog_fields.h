// What the layer dialogs make of their fields: numbers typed as text,
// the amounts and sizes they allow, and the kept aspect of a new size.
#pragma once

#include <string>

constexpr int kMinSideAmount = 1;
constexpr int kMaxSideAmount = 1000;
// Drop shadow: an offset may point either way; each blur pass costs a pass
// over the enlarged planes, so a hundred is plenty.
constexpr int kMaxShadowOffset = 1000;
constexpr int kMaxShadowBlur = 100;

// A whole number typed into a field, clamped to lo..hi. Leading blanks and
// a sign are allowed, and what follows the digits is ignored; a field with
// no digits gives `fallback`, and any number of digits never overflows.
int FieldNumber(const std::string& text, int lo, int hi, int fallback);

// An angle in degrees typed into a field, within -360..360; unreadable
// text gives `fallback`.
double FieldAngle(const std::string& text, double fallback);

// The other side of a new size that keeps the old one's proportions:
// typed x other / typedOld, rounded to the nearest pixel and kept within
// the New dialog's limits.
int KeptAspectSide(int typed, int typedOld, int otherOld);
