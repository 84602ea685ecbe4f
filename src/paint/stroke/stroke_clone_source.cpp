#include "paint/stroke/stroke_clone_source.h"

#include "display/zoom.h"
#include "paint/modes/pen_modes.h"
#include "paint/stroke/stroke_windows.h"
#include "platform/platform.h"

namespace {

void InvertLine(const platform::PointerPosition& a, const platform::PointerPosition& b) {
  if (strokeWindows.invertScreenLine)
    strokeWindows.invertScreenLine(a.screenX, a.screenY, b.screenX, b.screenY);
}

}  // namespace

void SetCloneSource(Canvas* canvas) {
  const platform::PointerPosition press = platform::PollPointer();
  platform::PointerPosition end = press;
  InvertLine(press, end);
  for (;;) {
    platform::DrainPointerMessages();
    if (!platform::KeyDown(platform::VkLeftButton)) break;
    const platform::PointerPosition now = platform::PollPointer();
    if (now.screenX == end.screenX && now.screenY == end.screenY) continue;
    InvertLine(press, end);
    end = now;
    InvertLine(press, end);
  }
  InvertLine(press, end);
  const platform::PointerPosition release = platform::PollPointer();
  PenKernels.cloneOffsetX = ToCanvas(canvas, press.screenX - release.screenX);
  PenKernels.cloneOffsetY = ToCanvas(canvas, press.screenY - release.screenY);
}
