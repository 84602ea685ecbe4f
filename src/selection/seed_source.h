// Where the seed fill takes its colours from, and what a pixel reads as:
// three values per pixel, which the fill compares channel by channel.
#pragma once

#include <cstdint>
#include <vector>

#include "document/canvas.h"
#include "selection/channel_sets.h"

// The settings panel's choices of the source (seedLayer) and the
// tolerance; kept for the run, not in the settings file.
constexpr int kSeedAsViewed = -2;
constexpr int kSeedCurrent = -1;
extern int32_t seedTolerance;  // per channel, the limit included; 20
extern int32_t seedLayer;      // kSeedCurrent, kSeedAsViewed or a layer; kSeedCurrent
extern int32_t seedPlane;      // the plane within seedLayer; -1

// What an empty pixel (transparency 0) reads as in the Current mode: far
// from black by more than any sensible tolerance, and equal to its kind.
constexpr int kEmptySeedValue = -100;

struct SeedSource {
  enum Kind { AsViewed, Current, Plane } kind;
  const PlaneSlot* slot;          // the plane read, unless AsViewed
  const PlaneSlot* transparency;  // Current: position 2 of the layer, null without one
};

// By the settings: the picture as shown, the active plane with its
// layer's transparency, or plane seedLayer x 8 + seedPlane (one further
// for 2) without it, the active plane when there is no such plane.
SeedSource ChooseSeedSource(Canvas* canvas);

// Columns 0 .. width - 1 of canvas row y: blue, green, red (an 8-bit
// plane gives its value three times, 0 outside the layer) and the
// transparency T that scales them, 255 where none applies. 0 when the
// picture can't be composed.
int ReadSeedRow(Canvas* canvas, const SeedSource& source, int y, uint8_t* bgr, uint8_t* coverage);

// What a pixel reads as: each channel c as c x T / 255, truncating, and
// T = 0 as kEmptySeedValue in all three.
struct SeedValues {
  int32_t red, green, blue;
};
SeedValues SeedValuesOf(const uint8_t* bgr, uint8_t coverage);

// Whether a pixel lies within the tolerance of the start in all three
// values, looked up by T and each channel's byte.
class SeedMatcher {
 public:
  SeedMatcher(const SeedValues& start, int32_t tolerance);
  // n pixels to 1 (matches) or 0.
  void MatchRow(const uint8_t* bgr, const uint8_t* coverage, int n, uint8_t* out) const;

 private:
  // By T, the bytes of each channel that lie near the start.
  ChannelSets near_[256];
};
