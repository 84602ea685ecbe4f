#include "selection/draft_outline.h"

#include <algorithm>

#include "display/view_windows.h"
#include "display/zoom.h"
#include "selection/draft_engine.h"
#include "selection/gesture.h"
#include "selection/selection_windows.h"

namespace {

constexpr int kPegReach = 4;

// One gesture at a time owns the mouse.
RubberBand* runningBand = nullptr;

}  // namespace

ViewPoint ViewOf(const Canvas* canvas, int x, int y) {
  return {ToView(canvas, x, 1), ToView(canvas, y, 1)};
}

ViewPoint PointerInView(Canvas* canvas) {
  if (!viewWindows.pointer) return {};
  const PointerState pointer = viewWindows.pointer(canvas);
  return {pointer.viewX, pointer.viewY};
}

bool OnPeg(ViewPoint pointer, ViewPoint peg) {
  return pointer.x - peg.x < kPegReach && peg.x - pointer.x < kPegReach &&
         pointer.y - peg.y < kPegReach && peg.y - pointer.y < kPegReach;
}

void DottedLine(Canvas* canvas, ViewPoint a, ViewPoint b) {
  if (selectionWindows.invertLine)
    selectionWindows.invertLine(canvas, OutlinePen::Dotted, a.x, a.y, b.x, b.y);
}

void FrameBox(Canvas* canvas, ViewPoint a, ViewPoint b) {
  if (selectionWindows.invertBox)
    selectionWindows.invertBox(canvas, Rect{std::min(a.x, b.x), std::min(a.y, b.y),
                                            std::max(a.x, b.x), std::max(a.y, b.y)});
}

void Peg(Canvas* canvas, ViewPoint at) {
  if (selectionWindows.invertBox)
    selectionWindows.invertBox(
        canvas, Rect{at.x - kPegReach, at.y - kPegReach, at.x + kPegReach, at.y + kPegReach});
}

RubberBand::RubberBand(Canvas* canvas, std::function<void()> draw)
    : canvas_(canvas), draw_(std::move(draw)) {
  EraseOutline(canvas);
  runningBand = this;
  Toggle();
}

RubberBand::~RubberBand() {
  if (shown_) Toggle();
  runningBand = nullptr;
}

void RubberBand::Toggle() {
  draw_();
  shown_ = !shown_;
}

void RubberBand::Repaint() {
  if (shown_) draw_();
}

void RubberDrag(Canvas* canvas, CanvasPoint grabOffset, std::function<void()> draw,
                const std::function<void(CanvasPoint at)>& update) {
  RubberBand band(canvas, std::move(draw));
  DragLoop(
      canvas, grabOffset, [&] { band.Toggle(); }, update);
}

void ToggleDraftOverlay(Canvas* canvas) {
  if (runningBand && runningBand->On(canvas))
    runningBand->Repaint();
  else
    EraseOutline(canvas);
}
