#include "paint/win/stroke_windows_win.h"

#include <windows.h>

#include "paint/stroke/stroke_windows.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

// From the first point up to the last, which is left out.
void Line(HDC dc, int x0, int y0, int x1, int y1) {
  MoveToEx(dc, x0, y0, nullptr);
  LineTo(dc, x1, y1);
}

void InvertScreenLine(int x0, int y0, int x1, int y1) {
  win32::InvertingDc dc(nullptr);
  if (dc.get()) Line(dc.get(), x0, y0, x1, y1);
}

void DrawPenOutline(WindowHandle view, const PenOutline& outline) {
  win32::InvertingDc dc(static_cast<HWND>(view));
  if (!dc.get()) return;
  const Rect& box = outline.box;
  if (outline.ellipse)
    Ellipse(dc.get(), box.left, box.top, box.right + 1, box.bottom + 1);
  else
    Rectangle(dc.get(), box.left, box.top, box.right + 1, box.bottom + 1);
  if (!outline.cross) return;
  const int x = outline.crossX, y = outline.crossY;
  Line(dc.get(), x - kCloneCrossArm, y, x + kCloneCrossArm + 1, y);
  // The vertical arm leaves out the middle, which the horizontal one
  // inverted already.
  Line(dc.get(), x, y - kCloneCrossArm, x, y);
  Line(dc.get(), x, y + 1, x, y + kCloneCrossArm + 1);
}

// The pen's colour shows on the control panel's pages.
void ColourChanged() {
  if (HWND panel = platform::BoundWindow(platform::Window::ControlPanel))
    RedrawWindow(panel, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

}  // namespace

void InstallStrokeWindows() {
  strokeWindows.cursor = platform::SetCustomCursor;
  strokeWindows.colourChanged = ColourChanged;
  strokeWindows.invertScreenLine = InvertScreenLine;
  strokeWindows.drawPenOutline = DrawPenOutline;
}
