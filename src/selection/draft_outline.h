// How the Draft's outline stands on the view. At rest a shaped Draft shows
// the outline of its kind's tool, pegs and all; while a gesture runs, its
// rubber band stands there instead. Both are drawn by inversion, so the
// view's repaints take whichever shows off and put it back.
#pragma once

#include <functional>

#include "display/grid.h"
#include "document/canvas.h"

struct ViewPoint {
  int x, y;
};

// A canvas position in view pixels, in the middle of the pixel.
ViewPoint ViewOf(const Canvas* canvas, int x, int y);
// The pointer in view pixels now.
ViewPoint PointerInView(Canvas* canvas);
// The pointer lies fewer than 4 view pixels off a peg both ways: 7 x 7
// view pixels at any zoom.
bool OnPeg(ViewPoint pointer, ViewPoint peg);

// The three inverting primitives in view pixels.
void DottedLine(Canvas* canvas, ViewPoint a, ViewPoint b);
void FrameBox(Canvas* canvas, ViewPoint a, ViewPoint b);
// A square of side 8 around the point.
void Peg(Canvas* canvas, ViewPoint at);

// A gesture's rubber band, shown from its making, over the outline at
// rest, which goes first. Toggle draws it once more (off, or on again);
// whatever shows of it goes with the band.
class RubberBand {
 public:
  RubberBand(Canvas* canvas, std::function<void()> draw);
  ~RubberBand();
  RubberBand(const RubberBand&) = delete;
  RubberBand& operator=(const RubberBand&) = delete;
  void Toggle();
  bool On(const Canvas* canvas) const { return canvas == canvas_; }
  // A repaint takes it off and puts it back: drawn only when it shows.
  void Repaint();

 private:
  Canvas* canvas_;
  std::function<void()> draw_;
  bool shown_ = false;
};

// A drag with its band: DragLoop (gesture.h) moving the drawing with the
// pointer, from a first drawing at the press to nothing at the release.
void RubberDrag(Canvas* canvas, CanvasPoint grabOffset, std::function<void()> draw,
                const std::function<void(CanvasPoint at)>& update);

// The overlay toggle of the Draft: the band of a running gesture on that
// canvas, else the outline at rest.
void ToggleDraftOverlay(Canvas* canvas);
