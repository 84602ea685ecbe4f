// Shared set-up of the view tests: a clean seam and settings, canvases made
// as the New command makes them, the view's window side replaced by
// recorders, and a scripted pointer.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <deque>
#include <memory>
#include <vector>

#include "display/pointer_routing.h"
#include "display/view_windows.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "support/fixture.h"

using Rgb = std::array<uint8_t, 3>;  // blue, green, red as stored

class ViewTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    settings.workBuffer = Physical;
    viewWindows.pointer = [this](Canvas*) {
      if (script.size() > 1) {
        PointerState next = script.front();
        script.pop_front();
        return next;
      }
      return script.empty() ? PointerState{} : script.front();
    };
    viewWindows.buttonHeld = [this](PointerButton) { return held > 0 && held--; };
  }
  // The pointer stands at each of these in turn (the last one stays), in
  // view pixels; the screen position follows it.
  void PointerAt(std::initializer_list<std::array<int, 2>> points) {
    for (const auto& p : points) script.push_back({p[0], p[1], p[0], p[1], 1});
  }

  std::deque<PointerState> script;
  int held = 0;  // polls of the button that find it down
};

inline Rgb TilePixel(const DibTile* tile, int x, int y) {
  Rgb rgb{};
  ReadTileRow(tile, y, x, x, rgb.data());
  return rgb;
}

inline void SetTilePixel(DibTile* tile, int x, int y, Rgb rgb) {
  WriteTileRow(tile, y, x, x, rgb.data());
}
