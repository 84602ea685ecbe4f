#include "display/rulers.h"

#include <cstdio>

#include "display/zoom.h"
#include "platform/platform.h"
#include "settings/settings.h"

namespace {

constexpr int kTickStep = 50;

int MarkAt(const Canvas* canvas, int v, int scroll) { return ToView(canvas, v, 1) - scroll; }

}  // namespace

std::vector<RulerTick> RulerTicks(const Canvas* canvas, Axis axis, int length) {
  const bool horizontal = axis == Axis::Horizontal;
  const int size = horizontal ? canvas->canvasWidth : canvas->canvasHeight;
  const int scroll = horizontal ? canvas->scrollX : canvas->scrollY;
  std::vector<RulerTick> ticks;
  for (int v = 0; v < size; v += kTickStep) {
    const int at = MarkAt(canvas, v, scroll);
    if (at < 0 || at >= length) continue;
    const int hundred = v % (2 * kTickStep) == 0;
    ticks.push_back({at, hundred, horizontal && !hundred});
  }
  return ticks;
}

void ShowPosition(Canvas* canvas, int x, int y) {
  if (settings.displayPosition && viewWindows.showPosition) {
    char text[32];
    std::snprintf(text, sizeof text, "%d %d", x, y);
    viewWindows.showPosition(text);
  }
  if (!canvas->rulersOn) return;
  platform::SendToWindow(platform::Window::HorizontalRuler, platform::MsgRulerMark, 0,
                         MarkAt(canvas, x, canvas->scrollX));
  platform::SendToWindow(platform::Window::VerticalRuler, platform::MsgRulerMark, 0,
                         MarkAt(canvas, y, canvas->scrollY));
}
