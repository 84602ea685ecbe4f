#include "paint/stroke/stroke_segment.h"

#include <cmath>

#include "paint/modes/place_dab.h"
#include "paint/tip/pen_record.h"
#include "display/redraw.h"
#include "paint/tip/tip.h"

double StrokeSpacing(double factor) {
  const double spacing = tipMinimum() * factor;
  return spacing < 1.0 ? 1.0 : spacing;
}

void DrawPenSegment(Canvas* canvas, double x0, double y0, double x1, double y1, int exactEnd,
                    int rightButton, Rect* painted, int refresh, double spacing, int& first) {
  const double dx10 = std::trunc(x0 * 10 - x1 * 10);
  const double dy10 = std::trunc(y0 * 10 - y1 * 10);
  const bool majorY = std::fabs(dx10) <= std::fabs(dy10);
  const double a0 = majorY ? y0 : x0, b0 = majorY ? x0 : y0;
  const double b1 = majorY ? x1 : y1;
  double a1 = majorY ? y1 : x1;
  const bool falling = a1 < a0;
  if (!exactEnd && std::fabs(a1 - a0) > 1.5) a1 += falling ? 0.5 : -0.5;

  Rect box = kNoBox;
  const double step = falling ? -0.1 : 0.1;
  for (double t = a0; falling ? t > a1 : t < a1; t += step) {
    const double minor = (t - a0) * (b1 - b0) / (a1 - a0) + b0;
    Rect dab = kNoBox;
    PlaceDab(canvas, majorY ? minor : t, majorY ? t : minor, 0, rightButton, &dab, spacing, first);
    box = Union(box, dab);
    ++tipState.dabCount;
  }
  if (refresh) RedrawCanvasBox(canvas, box);
  if (painted) *painted = box;
}
