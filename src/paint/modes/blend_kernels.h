// The per-pixel arithmetic of BlendRow, in 8 bits and in 16 bits, over
// rows already read from the plane.
#pragma once

#include <cstdint>

// How the transparency plane takes part.
enum class TransparencyBlend {
  None,     // not read: plain mix of the colour
  Replace,  // kind 1: mixes towards the source opacity
  Over,     // kind 0: the colour lies over what is there; coverage grows
};

struct BlendRows {
  const uint8_t* source;  // blue, green, red
  const uint8_t* tipHigh;
  const uint8_t* tipLow;  // may be null
  const uint8_t* sourceOpacity;
  const uint8_t* protect;
  uint8_t* dest;          // blue, green, red, blended in place
  uint8_t* destLow;       // low bytes of dest, 16-bit blend only
  uint8_t* transparency;  // the layer's transparency, blended in place
  int count;
  // Every row has slack (dab_rows.h), not only dest, destLow and
  // transparency, which always have.
  bool slack = false;
};

// Runs Pixels<How, Dropout>::Run with the case fixed at compile time, so
// the pixel loops carry no tests of it.
template <template <TransparencyBlend, bool> typename Pixels, TransparencyBlend How>
void RunBlend(const BlendRows& rows, unsigned thickness, unsigned density) {
  if (density < 255)
    Pixels<How, true>::Run(rows, thickness, density);
  else
    Pixels<How, false>::Run(rows, thickness, density);
}

template <template <TransparencyBlend, bool> typename Pixels>
void DispatchBlend(const BlendRows& rows, TransparencyBlend how, unsigned thickness,
                   unsigned density) {
  switch (how) {
    case TransparencyBlend::None:
      return RunBlend<Pixels, TransparencyBlend::None>(rows, thickness, density);
    case TransparencyBlend::Replace:
      return RunBlend<Pixels, TransparencyBlend::Replace>(rows, thickness, density);
    case TransparencyBlend::Over:
      return RunBlend<Pixels, TransparencyBlend::Over>(rows, thickness, density);
  }
}

// Each draws one random number per pixel where dropout asks for it.
void Blend8(const BlendRows& rows, TransparencyBlend how, unsigned thickness, unsigned density);
void Blend16(const BlendRows& rows, TransparencyBlend how, unsigned thickness, unsigned density);
