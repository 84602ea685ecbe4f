// What the selection's portable logic needs from the windows. The Win32
// side (selection/win/) fills `selectionWindows` when the frame is made;
// tests fill it with recorders and scripts. A member left empty means the
// window side can't do that, and the step that needs it is left out.
//
// Every outline is drawn straight on the canvas view by a raster
// operation that undoes itself when drawn twice, so erasing needs no
// saved pixels. Positions are in view pixels of displayWnd.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/rect.h"
#include "document/canvas.h"
#include "selection/radius_dialog.h"

// An event of a click tool's own message loop (polygon, connect line,
// wire): the loop answers only these and drops everything else.
struct ClickEvent {
  enum Type { Move, LeftDown, RightUp, Backspace } type;
};

// A pop-up menu's item as shown: its id and whether it can be chosen.
struct MenuItemState {
  int id;
  bool enabled;
};

enum class OutlinePen { Dotted, Current };

struct SelectionWindows {
  // A line from (x0, y0) to (x1, y1), inverted: dotted, width 0, or in the
  // view's current pen.
  std::function<void(Canvas*, OutlinePen, int x0, int y0, int x1, int y1)> invertLine;
  // The frame of a rectangle, inverted with the current pen.
  std::function<void(Canvas*, const Rect& box)> invertBox;
  // The ellipse inside a rectangle, inverted with the current pen.
  std::function<void(Canvas*, const Rect& bounds)> invertArc;
  // A coloured line or frame, width 1, drawn so that a second drawing
  // removes it (colour as 0x00BBGGRR).
  std::function<void(Canvas*, int x0, int y0, int x1, int y1, uint32_t colour)> colouredLine;
  std::function<void(Canvas*, const Rect& box, uint32_t colour)> colouredBox;
  // Text of size 12 with its top left at (x, y), drawn so that a second
  // drawing removes it.
  std::function<void(Canvas*, int x, int y, const std::string& text)> invertText;

  // tsl_selext, Detect Selection, modeless: opens and returns its window,
  // null when it can't; the dialog calls detect_selection.h as the user
  // works. Closing takes it away without asking anything.
  std::function<WindowHandle(Canvas*)> openDetectDialog;
  std::function<void()> closeDetectDialog;
  // A bar shows pickTable again at one column, or (bar -1) all bars and
  // their captions.
  std::function<void(int bar, int column)> redrawPickBar;
  // The dialog down to its bars while a sampling lasts, then back.
  std::function<void(bool toBars)> shrinkDetectDialog;

  // The resource cursor of that name ("posmove", "move", "posmove2",
  // "cross"); an empty name puts back the cursor that was saved.
  std::function<void(const std::string& name)> showCursor;
  // The menu resource of that name at the pointer, items set as given:
  // the id chosen, 0 for none.
  std::function<int(Canvas*, const std::string& menu, const std::vector<MenuItemState>& items)>
      popupMenu;
  // A command to the frame, as its menu would give it: at once, or posted
  // to run once the program waits for input again.
  std::function<void(int id)> sendCommand;
  std::function<void(int id)> postCommand;
  // Waits for the next event of a click tool's loop.
  std::function<ClickEvent(Canvas*)> nextClickEvent;
  // The number dialog: a title, a range and the value shown, written back
  // on OK; 1 for OK.
  std::function<int(const std::string& title, int low, int high, int* value)> numberDialog;
  // The radius dialog of that template (tsl_selmax, tsl_selmin,
  // tsl_sellow), opened with the choice and writing it back on OK; 1 for OK.
  std::function<int(const char* dialogTemplate, RadiusChoice* choice)> radiusDialog;

  // The Open (save false) or Save dialog for one kind of file: filter in
  // the string table's form ("text/pattern/"), save adding extension to a
  // name typed without one. True with the path chosen.
  std::function<bool(bool save, const std::string& filter, const std::string& extension,
                     std::string* path)>
      fileDialog;
  // The settings panel tsl_subopt shows when hidden and hides when shown.
  std::function<void()> toggleSettingsPanel;
  // The history's list, where a panel shows it, fills again.
  std::function<void()> refillHistoryList;
};

extern SelectionWindows selectionWindows;
