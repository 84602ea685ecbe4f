// Shared set-up of the canvas tests: the base fixture, and pixel helpers.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "support/fixture.h"

using CanvasTest = TeselTest;

using Rgb = std::array<uint32_t, 3>;

inline Rgb Pixel24(Plane* plane, int x, int y) {
  Rgb rgb{999, 999, 999};
  PlaneStore.ReadPixel24(plane, x, y, &rgb[0], &rgb[1], &rgb[2]);
  return rgb;
}

// True when every byte of every pixel holds value.
inline bool AllBytes(Plane* plane, uint8_t value) {
  std::vector<uint8_t> row(static_cast<size_t>(plane->width) * plane->bytesPerPixel);
  for (int y = 0; y < plane->height; ++y) {
    PlaneStore.ReadRow(plane, y, 0, plane->width - 1, row.data());
    for (uint8_t byte : row)
      if (byte != value) return false;
  }
  return true;
}

inline std::vector<std::string> BoxTexts() {
  std::vector<std::string> texts;
  for (const headless::ShownBox& box : headless::Recorded().boxes) texts.push_back(box.text);
  return texts;
}

inline std::string LastBoxText() { return BoxTexts().empty() ? "" : BoxTexts().back(); }
