// Shared set-up of the stroke tests: a clean seam, pen and history, a
// canvas made as New makes it, a scripted pointer, and a recorder of the
// dabs a stroke places. The recorder stands in the gradient source of the
// Color pen, which PlaceDab asks once per row of every dab it paints; at a
// dab's first row the position PlaceDab accepted is at hand.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "display/pointer_routing.h"
#include "display/view_windows.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/undo_history.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/place_dab.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/stroke/stroke_outline.h"
#include "paint/stroke/stroke_pressure.h"
#include "paint/stroke/stroke_windows.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "support/fixture.h"
#include "support/planes.h"

namespace stroketest {

struct Dab {
  double x, y;
  bool operator==(const Dab&) const = default;
};
inline std::ostream& operator<<(std::ostream& out, const Dab& d) {
  return out << "(" << d.x << ", " << d.y << ")";
}

inline std::vector<Dab> recordedDabs;

// Black source rows; the dab's position is noted at its first row.
inline void RecordDab(uint8_t* sourceRow, int y, int x0, int x1, const Rect& box) {
  std::memset(sourceRow, 0, size_t(x1 - x0 + 1) * 3);
  if (y == box.top) recordedDabs.push_back({PenBlender.lastDabX, PenBlender.lastDabY});
}

using Keys = std::vector<int>;
inline const Keys kLeft{platform::VkLeftButton};
inline const Keys kRight{platform::VkRightButton};

class StrokeTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    settings.workBuffer = Physical;
    settings.positionSmoothing = 1;
    settings.undoCount = 5;
    recordedDabs.clear();
  }
  // A round soft tip of the radius, its dabs recorded.
  static void RecordingPen(double radius) {
    pen.radiusX = pen.radiusY = radius;
    BuildTip();
    pen.colorStyle = 1;
    penSources.gradientRow = RecordDab;
  }
  // A block tip of the radius (one full pixel at its top left for 0).
  static void BlockPen(double radius, uint32_t red, uint32_t green, uint32_t blue) {
    pen.tipShape = 10;
    pen.radiusX = pen.radiusY = radius;
    BuildTip();
    pen.red = red, pen.green = green, pen.blue = blue;
  }
  // The pointer at the press, then one sample per pass of a loop.
  static void Press(int x, int y, const Keys& keys) { headless::Recorded().pointer = {x, y, keys}; }
  static void Then(std::vector<headless::PointerSample> samples) {
    headless::ScriptPointer(samples);
  }
  static std::vector<int> UndoBox(int entry = 0) {
    const UndoEntry& e = UndoHistory.entries[entry];
    return {e.left, e.top, e.right, e.bottom};
  }

};

// The walker as it reads: steps of 0.1 along the longer axis from the start
// towards the end (pulled back by half a pixel on a walk of more than 1.5
// when the end isn't exact), the other axis in proportion.
inline std::vector<Dab> OfferedPoints(double x0, double y0, double x1, double y1, bool exactEnd) {
  const bool yMajor =
      std::fabs(std::trunc(x0 * 10 - x1 * 10)) <= std::fabs(std::trunc(y0 * 10 - y1 * 10));
  const double a0 = yMajor ? y0 : x0, b0 = yMajor ? x0 : y0, b1 = yMajor ? x1 : y1;
  double a1 = yMajor ? y1 : x1;
  const double dir = a1 < a0 ? -1.0 : 1.0;
  if (!exactEnd && std::fabs(a1 - a0) > 1.5) a1 -= 0.5 * dir;
  std::vector<Dab> points;
  for (double t = a0; dir * (a1 - t) > 0; t += 0.1 * dir) {
    const double m = (t - a0) * (b1 - b0) / (a1 - a0) + b0;
    points.push_back(yMajor ? Dab{m, t} : Dab{t, m});
  }
  return points;
}

// Spacing as PlaceDab keeps it while connected: a point nearer than
// spacing to the last accepted one is refused.
inline void AcceptSpaced(const std::vector<Dab>& offered, double spacing, bool first,
                         std::vector<Dab>& accepted) {
  for (const Dab& p : offered) {
    const double dx = accepted.empty() ? 0 : p.x - accepted.back().x,
                 dy = accepted.empty() ? 0 : p.y - accepted.back().y;
    if (!first && !accepted.empty() && std::sqrt(dx * dx + dy * dy) < spacing) continue;
    first = false;
    accepted.push_back(p);
  }
}

// The box of the dabs of a recording pen of radius r: each covers its tip
// of 2 r + 2 pixels and one more column and row.
inline std::vector<int> DabsBox(const std::vector<Dab>& dabs, int r) {
  std::vector<int> box{999999, 999999, 0, 0};
  for (const Dab& d : dabs)
    box = {std::min(box[0], int(d.x) - r), std::min(box[1], int(d.y) - r),
           std::max(box[2], int(d.x) + r + 3), std::max(box[3], int(d.y) + r + 3)};
  return box;
}

}  // namespace stroketest
