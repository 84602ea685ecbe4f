// ReplaySmoothedStroke: Auto Smooth's second painting of a tablet stroke.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "display/redraw.h"
#include "paint/tip/pen_record.h"
#include "paint/stroke/stroke_engine.h"
#include "paint/stroke/stroke_loop.h"
#include "paint/stroke/stroke_loops.h"
#include "paint/stroke/stroke_pressure.h"
#include "paint/stroke/stroke_segment.h"

namespace {

constexpr int64_t kFadeMilliseconds = 100;
constexpr int kSmoothBehind = 5, kSmoothAhead = 4;  // ten slots, i - 5 .. i + 4
constexpr int kRepaintMargin = 8;

int64_t TickGap(const StrokeSample& a, const StrokeSample& b) {
  return std::llabs(int64_t{a.tick} - int64_t{b.tick});
}

// The odd slots take the means of their neighbours.
void FillMidpoints(StrokeSample* s, int count) {
  for (int k = 0; k + 1 < count; ++k) {
    const StrokeSample& a = s[2 * k];
    const StrokeSample& b = s[2 * k + 2];
    s[2 * k + 1] = {static_cast<float>((a.x + b.x) * 0.5), static_cast<float>((a.y + b.y) * 0.5),
                    (a.pressure + b.pressure) / 2,
                    static_cast<uint32_t>((uint64_t{a.tick} + b.tick) / 2)};
  }
}

// Over the last 100 ms the pressure falls to 0 at the last slot.
void FadeOut(StrokeSample* s, int m) {
  int i = 0;
  for (int k = 0; k < m; ++k)
    if (TickGap(s[k], s[m - 1]) >= kFadeMilliseconds) i = k;
  const int n = m - i - 1;
  if (n <= 2) return;
  const int peak = s[std::max(m - 1 - n, 0)].pressure;
  for (int k = 0; k < n; ++k) s[m - 1 - k].pressure = k * peak / std::max(n - 1, 1);
}

// Over the first 100 ms the pressure rises from 0 at the first slot.
void FadeIn(StrokeSample* s, int m) {
  int j = 0;
  for (int k = 0; k < m; ++k)
    if (TickGap(s[k], s[0]) < kFadeMilliseconds + 1) j = k;
  if (j <= 2) return;
  const int peak = s[j].pressure;
  for (int k = 0; k < j; ++k) s[k].pressure = k * peak / std::max(j - 1, 1);
}

// A running mean in place: behind each slot the window already reads
// smoothed values, ahead of it raw ones. That is how the pen has always
// felt.
void SmoothPositions(StrokeSample* s, int m) {
  for (int i = 0; i < m; ++i) {
    double sumX = 0.0, sumY = 0.0;
    for (int k = i - kSmoothBehind; k <= i + kSmoothAhead; ++k) {
      const StrokeSample& at = s[std::clamp(k, 0, m - 1)];
      sumX += at.x;
      sumY += at.y;
    }
    s[i].x = static_cast<float>(sumX * 0.1);
    s[i].y = static_cast<float>(sumY * 0.1);
  }
}

}  // namespace

int ReplaySmoothedStroke(Canvas* canvas, int rightButton, int count, const Rect& given) {
  if (count < 2) return 1;
  // Only the samples that fit were stored.
  const int stored = std::min(count, kStrokeSampleLimit);
  const double spacing = StrokeSpacing();
  StrokeSample* s = StrokeEngine.strokeSamples;
  FillMidpoints(s, stored);
  const int m = std::max(2 * stored - 1, 0);
  FadeOut(s, m);
  FadeIn(s, m);
  SmoothPositions(s, m);

  Rect box = Union(kNoBox, given);
  int first = 1;
  tipState.dabCount = 0;
  for (int i = 0; i + 1 < m; ++i) {
    ApplyPressure(first, s[i].pressure);
    Rect painted = kNoBox;
    DrawPenSegment(canvas, s[i].x, s[i].y, s[i + 1].x, s[i + 1].y, 0, rightButton, &painted, 0,
                   spacing, first);
    box = Union(box, painted);
    RestorePen();
    ++tipState.dabCount;
    first = 0;
  }
  RedrawCanvasBox(canvas, Rect{box.left - kRepaintMargin, box.top - kRepaintMargin,
                               box.right + kRepaintMargin, box.bottom + kRepaintMargin});
  RecordStrokeUndo(canvas, box);
  return 1;
}
