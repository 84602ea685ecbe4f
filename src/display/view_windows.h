// What the view's portable logic needs from the windows of a document. The
// Win32 display fills `viewWindows` once its windows stand; tests fill it
// with recorders and scripts. A member left empty means the window side
// can't do that, and the step that needs it is left out.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/rect.h"
#include "display/zoom.h"
#include "document/canvas.h"
#include "store/dib.h"

enum class Axis { Horizontal, Vertical };

struct GridChoice;              // display/grid_command.h
struct SmoothZoomDialogFields;  // display/smooth_zoom_choice.h

// What a scroll bar shows: range 0..max, a page, a position.
struct ScrollBarState {
  int max, page, position;
};

struct PointerState {
  int viewX, viewY;      // in displayWnd's client coordinates
  int screenX, screenY;  // on the screen: steady while displayWnd moves
  int inDocument;        // the pointer stands inside documentWnd
};

enum class PointerButton { Left, Right, Middle };

// A line of the grid, ends inclusive, in view pixels.
struct GridLine {
  int x0, y0, x1, y1;
};

struct ViewWindows {
  // Where the pointer is now.
  std::function<PointerState(Canvas* canvas)> pointer;
  // Polled by the short drag loops; true while the button is down. The
  // window side lets pending paint messages through meanwhile.
  std::function<bool(PointerButton button)> buttonHeld;
  // Moves the pixels that frameWnd shows (and displayWnd with them) by
  // dx, dy, as a scroll does.
  std::function<void(Canvas* canvas, int dx, int dy)> scrollWindow;
  std::function<void(Canvas* canvas, Axis axis, const ScrollBarState& bar)> setScrollBar;
  // The ruler along one axis paints again.
  std::function<void(Canvas* canvas, Axis axis)> repaintRuler;
  // Pending paint of displayWnd is done now.
  std::function<void(Canvas* canvas)> updateNow;
  // All of displayWnd paints again, through its paint message and so with
  // its overlays kept, once the program waits for input.
  std::function<void(Canvas* canvas)> invalidate;
  // WM_SIZE to documentWnd twice: double its client size, then the real
  // size (size type 2 when the child is maximized).
  std::function<void(Canvas* canvas)> resendDocumentSize;
  // A command to the document window, as its menu would send it.
  std::function<void(Canvas* canvas, int id)> sendCommand;
  // The status bar's zoom field and position field.
  std::function<void(const ZoomReadout& readout)> showZoom;
  std::function<void(const std::string& text)> showPosition;
  // Bits per pixel of the screen; 15 and 16 are dithered.
  std::function<int()> displayBits;
  // Of a 24-bit picture whose top left stands at (x, y) of displayWnd, the
  // part (in the picture's pixels) is copied to the window.
  std::function<void(Canvas* canvas, const DibTile* picture, int x, int y, const Rect& part)>
      drawPicture;
  // A grid line in the grid colour, pen width 1, clipped to clip; with
  // invert set by R2_NOTXORPEN, so that a second drawing removes it.
  std::function<void(Canvas* canvas, const GridLine& line, uint32_t red, uint32_t green,
                     uint32_t blue, int invert, const Rect& clip)>
      drawGridLine;
  // An inverted frame of a rectangle of displayWnd; drawing it twice
  // removes it.
  std::function<void(Canvas* canvas, const Rect& box)> invertBox;
  // The hand cursor (resource `hand`) while on is set, the usual after.
  std::function<void(bool on)> handCursor;
  // The dialog tsl_grid: shows the choice, writes back what was entered, 1
  // for OK.
  std::function<int(GridChoice* choice)> gridDialog;
  // The dialog tsl_szoom: shows the fields, writes back the choice, 1 for OK.
  std::function<int(SmoothZoomDialogFields* fields)> smoothZoomDialog;
  // The Smooth Zoom frame's menu daZoomSel at the pointer: the item chosen
  // (ZoomFrameItem).
  std::function<int(Canvas* canvas)> zoomFrameMenu;
};

extern ViewWindows viewWindows;
