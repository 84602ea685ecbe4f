// The Draft tests' set-up: the selection installed on a blank canvas at
// 100 %, a pointer that a drag walks along a path (one step each time the
// button is polled), a script of clicks for the click tools, and the
// inverting drawings kept as a set, so that a drawing made twice is gone
// as on the screen.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "base/current_tool.h"
#include "display/pointer_routing.h"
#include "display/view_windows.h"
#include "document/selection_rows.h"
#include "platform/headless/headless.h"
#include "selection/draft.h"
#include "selection/install.h"
#include "selection/selection_windows.h"
#include "support/fixture.h"

struct Point {
  int x, y;
};

class DraftTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    settings.workBuffer = Physical;
    InstallSelection("");  // no program folder: no history is kept
    canvas = MakeBlank(40, 30);
    viewWindows.pointer = [this](Canvas*) { return PointerState{at.x, at.y, at.x, at.y, 1}; };
    viewWindows.buttonHeld = [this](PointerButton) {
      if (path.empty()) return false;
      at = path.front();
      path.pop_front();
      return true;
    };
    selectionWindows.invertLine = [this](Canvas*, OutlinePen, int x0, int y0, int x1, int y1) {
      Toggle("line", x0, y0, x1, y1);
    };
    selectionWindows.invertBox = [this](Canvas*, const Rect& r) {
      Toggle("box", r.left, r.top, r.right, r.bottom);
    };
    selectionWindows.invertArc = [this](Canvas*, const Rect& r) {
      Toggle("arc", r.left, r.top, r.right, r.bottom);
    };
    selectionWindows.nextClickEvent = [this](Canvas*) {
      if (clicks.empty()) return ClickEvent{ClickEvent::RightUp};
      const auto [type, point] = clicks.front();
      clicks.pop_front();
      at = point;
      return ClickEvent{type};
    };
    selectionWindows.popupMenu = [this](Canvas*, const std::string& name,
                                        const std::vector<MenuItemState>& items) {
      menus.push_back({name, items});
      return menuAnswer;
    };
  }

  // A press of the left button with the tool at `from`, the button held
  // while the pointer walks the path.
  void Drag(int tool, Point from, std::vector<Point> through) {
    currentTool = tool;
    at = from;
    path.assign(through.begin(), through.end());
    LeftButtonDown(canvas, {tool, 0, 0, 0});
  }
  // A press and at once a release: the click tools then take the clicks.
  void Clicks(int tool, Point from, std::vector<std::pair<ClickEvent::Type, Point>> then) {
    clicks.assign(then.begin(), then.end());
    Drag(tool, from, {});
  }
  void Hold(std::vector<int> keys) { headless::Recorded().pointer.keysDown = std::move(keys); }

  void Toggle(const char* kind, int a, int b, int c, int d) {
    const auto drawing = std::make_tuple(std::string(kind), a, b, c, d);
    if (!shown.erase(drawing)) shown.insert(drawing);
  }
  // A peg as the outline draws it around a view point.
  static std::tuple<std::string, int, int, int, int> PegAt(int x, int y) {
    return {"box", x - 4, y - 4, x + 4, y + 4};
  }

  // The raster as 0 inside, 255 outside, row by row.
  std::vector<uint8_t> Values() {
    std::vector<uint8_t> values;
    for (int y = 0; y < canvas->canvasHeight; ++y)
      for (int x = 0; x < canvas->canvasWidth; ++x)
        values.push_back(ReadSelectionPixel(canvas, x, y));
    return values;
  }
  Rect Box() const { return SelectionBox(canvas); }

  Canvas* canvas = nullptr;
  Point at{};
  std::deque<Point> path;
  std::deque<std::pair<ClickEvent::Type, Point>> clicks;
  std::set<std::tuple<std::string, int, int, int, int>> shown;
  std::vector<std::pair<std::string, std::vector<MenuItemState>>> menus;
  int menuAnswer = 0;
};
