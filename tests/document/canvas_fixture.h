// Shared set-up of the canvas tests: the base fixture, and pixel helpers.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
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
#include "support/planes.h"

using CanvasTest = TeselTest;

using Rgb = std::array<uint32_t, 3>;

// True when every byte of every pixel holds value.
inline bool AllBytes(Plane* plane, uint8_t value) {
  const std::vector<uint8_t> bytes = PlaneBytes(plane);
  return std::all_of(bytes.begin(), bytes.end(), [value](uint8_t byte) { return byte == value; });
}

inline std::string LastBoxText() { return BoxTexts().empty() ? "" : BoxTexts().back(); }
