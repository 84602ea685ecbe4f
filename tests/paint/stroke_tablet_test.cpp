// Pressure from a tablet, the tablet stroke, and Auto Smooth's replay of
// its samples.
#include <deque>

#include "paint/stroke/stroke_loops.h"
#include "stroke_test_support.h"

namespace stroketest {
namespace {

// A tablet that answers from a queue; a packet of pressure -1 stands for a
// reading with nothing there.
std::deque<TabletPacket> packets;

class TabletTest : public StrokeTest {
 protected:
  void SetUp() override {
    StrokeTest::SetUp();
    packets.clear();
  }
  static void Install() {
    tabletLink.state = kTabletUsable;
    tabletLink.readSample = [](TabletPacket* out, int) {
      if (packets.empty()) return 0;
      const TabletPacket p = packets.front();
      packets.pop_front();
      if (p.pressure < 0) return 0;
      *out = p;
      return 1;
    };
  }
  static auto Strengths() { return std::make_pair(pen.colorThickness, pen.density); }
};

TEST_F(TabletTest, PressureBendsACopyOfThePen) {
  // No tablet: nothing bends.
  pen.colorThickness = 200;
  EXPECT_EQ(ApplyPressure(1, 100), 0);
  EXPECT_EQ(pen.colorThickness, 200u);

  Install();
  StrokeEngine.reflectOnThick = StrokeEngine.reflectOnDensity = 1;
  pen.density = 90;
  packets = {{128, 0, 0}};
  EXPECT_EQ(ApplyPressure(1, -1), 1);
  EXPECT_EQ(Strengths(), std::make_pair(100u, 45u));  // x 128 / 255
  RestorePen();
  EXPECT_EQ(Strengths(), std::make_pair(200u, 90u));

  // Size: the radii scale, the tip is rebuilt and stays after RestorePen;
  // size thins the colour too.
  StrokeEngine.reflectOnThick = StrokeEngine.reflectOnDensity = 0;
  StrokeEngine.reflectOnSize = 1;
  pen.radiusX = pen.radiusY = 10;
  BuildTip();
  EXPECT_EQ(ApplyPressure(0, 128), 1);
  EXPECT_EQ(std::make_tuple(pen.radiusX, pen.colorThickness, pen.tipHigh->width),
            std::make_tuple(10.0 * 128 * 0.00392156862745098, 100u, 12));
  Plane* rebuilt = pen.tipHigh;
  RestorePen();
  EXPECT_EQ(std::make_pair(pen.radiusX, pen.tipHigh), std::make_pair(10.0, rebuilt));

  // The eraser end paints as the Eraser; the mode waits in savedMode.
  pen.mode = kModeColor;
  packets = {{255, -1, 0}};
  EXPECT_EQ(ApplyPressure(1, -1), 1);
  EXPECT_EQ(std::make_pair(pen.mode, StrokeEngine.savedMode),
            std::make_pair(uint32_t(kModeEraser), int(kModeColor)));
  // A first reading without a packet makes the stroke a mouse stroke.
  packets = {{-1, 0, 0}};
  EXPECT_EQ(ApplyPressure(1, -1), 0);
  EXPECT_EQ(StrokeEngine.tabletSeen, 0);
  EXPECT_EQ(ApplyPressure(0, 50), 0);
}

TEST_F(TabletTest, TabletStrokePaintsOnlyWhenPacketsCome) {
  Canvas* canvas = MakeBlank(64, 64);
  RecordingPen(4);
  PenBlender.connected = 1;
  settings.restrainUndoDuringFreehand = 1;
  Install();
  StrokeEngine.reflectOnThick = 1;
  // One packet answers the start; then a pass with, one without, one with.
  packets = {{255, 0, 0}, {255, 0, 10}, {-1, 0, 0}, {200, 0, 30}};
  Then({{20, 20, kLeft}, {30, 24, kLeft}, {36, 30, kLeft}});
  EXPECT_EQ(RunConnectedStroke(canvas, 0, 0, 0), 1);
  std::vector<Dab> expected{{20, 20}};
  AcceptSpaced(OfferedPoints(20, 20, 36, 30, false), 1.0, false, expected);
  EXPECT_EQ(recordedDabs, expected);
  // Recorded for undo whatever the restraint; the samples in even slots.
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoRect);
  const StrokeSample& second = StrokeEngine.strokeSamples[2];
  EXPECT_EQ(std::make_tuple(second.x, second.y, second.pressure, second.tick),
            std::make_tuple(36.0f, 30.0f, 200, 30u));

  // A tap with Auto Smooth on stays as painted: one sample is neither
  // undone nor replayed. The history starts from the white picture.
  UndoHistory.ClearUndo(canvas, 1, 1);
  StrokeEngine.autoSmooth = 1;
  packets = {{255, 0, 0}, {255, 0, 40}};
  Then({{12, 50, kLeft}});
  EXPECT_EQ(RunConnectedStroke(canvas, 0, 0, 0), 1);
  const auto rgb = PixelRgb(canvas->planes[0].plane, 12, 50);
  EXPECT_LT(rgb[0] + rgb[1] + rgb[2], 3 * 255);
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoRect);
}

TEST_F(TabletTest, ReplayFadesAndSmoothsTheRecordedSamples) {
  Canvas* canvas = MakeBlank(64, 64);
  RecordingPen(2);
  PenBlender.connected = 1;
  StrokeSample* s = StrokeEngine.strokeSamples;
  const float xs[] = {10, 14, 20, 27, 31}, ys[] = {30, 28, 27, 22, 12};
  const int pressures[] = {200, 180, 240, 90, 160};
  for (int k = 0; k < 5; ++k) s[2 * k] = {xs[k], ys[k], pressures[k], uint32_t(40 * k)};

  // Nine slots, ticks 0, 20, ..., 160, the odd ones means of their neighbours.
  StrokeSample e[9];
  for (int i = 0; i < 9; ++i) {
    const int a = i / 2, b = (i + 1) / 2;
    e[i] = {float((xs[a] + xs[b]) * 0.5), float((ys[a] + ys[b]) * 0.5),
            (pressures[a] + pressures[b]) / 2, uint32_t(20 * i)};
  }
  // The last 100 ms are slots 4..8 (after slot 3 at 60 ms): they fall from
  // slot 3's pressure to 0 at slot 8. The first 100 ms end at slot 5:
  // slots 0..4 rise from 0 to slot 5's.
  for (int k = 0; k < 5; ++k) e[8 - k].pressure = k * e[3].pressure / 4;
  for (int k = 0; k < 5; ++k) e[k].pressure = k * e[5].pressure / 4;
  // The mean of slots i - 5 .. i + 4 (clamped), those behind already smoothed.
  for (int i = 0; i < 9; ++i) {
    double sx = 0, sy = 0;
    for (int k = i - 5; k <= i + 4; ++k)
      sx += e[std::clamp(k, 0, 8)].x, sy += e[std::clamp(k, 0, 8)].y;
    e[i].x = float(sx * 0.1);
    e[i].y = float(sy * 0.1);
  }

  EXPECT_EQ(ReplaySmoothedStroke(canvas, 0, 5, Rect{8, 9, 40, 41}), 1);
  for (int i = 0; i < 9; ++i)
    EXPECT_EQ(std::make_tuple(s[i].x, s[i].y, s[i].pressure),
              std::make_tuple(e[i].x, e[i].y, e[i].pressure))
        << i;
  std::vector<Dab> expected;
  int offered = 0;
  for (int i = 0; i < 8; ++i) {
    const std::vector<Dab> points = OfferedPoints(e[i].x, e[i].y, e[i + 1].x, e[i + 1].y, false);
    offered += int(points.size());
    AcceptSpaced(points, 1.0, i == 0, expected);
  }
  EXPECT_EQ(recordedDabs, expected);
  EXPECT_EQ(tipState.dabCount, offered + 8);  // each step of the walker, and each segment
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoRect);
  EXPECT_LE(UndoHistory.entries[0].left, 8);
  EXPECT_GE(UndoHistory.entries[0].bottom, 41);

  // A single sample is left as painted.
  UndoHistory.Reset();
  EXPECT_EQ(ReplaySmoothedStroke(canvas, 0, 1, Rect{0, 0, 5, 5}), 1);
  EXPECT_EQ(UndoHistory.entries[0].kind, kUndoEmpty);
}

}  // namespace
}  // namespace stroketest
