// What the settings record's toolState words hold: the pen as it was at the
// last exit. Radii are kept in hundredths of a pixel so that every word is
// an integer; the words after the named ones stay zero for later use.
#pragma once

#include <cstdint>
#include <cstring>

#include "settings/settings.h"

struct PenToolState {
  int32_t red, green, blue;    // 0..255
  int32_t mode;                // pen mode, 0..12
  int32_t colorThickness;      // 0..255
  int32_t density;             // 0..255
  int32_t radiusX, radiusY;    // hundredths of a pixel
  int32_t tipShape;            // 0..15
  int32_t reserved[69];

  bool operator==(const PenToolState&) const = default;
};

static_assert(sizeof(PenToolState) == sizeof(Settings::toolState));
static_assert(sizeof(PenToolState) == 78 * 4);

// The first-run pen: black, normal mode, full strength, a 3-pixel radius
// and the soft round tip whose centre is at full strength.
constexpr PenToolState kDefaultPenToolState{0, 0, 0, 0, 255, 255, 300, 300, 15, {}};

inline PenToolState ReadPenToolState(const Settings& record) {
  PenToolState state;
  std::memcpy(&state, record.toolState, sizeof state);
  return state;
}

inline void WritePenToolState(Settings& record, const PenToolState& state) {
  std::memcpy(record.toolState, &state, sizeof state);
}
