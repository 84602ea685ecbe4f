// Menu item states at WM_INITMENUPOPUP, and which main menu the frame
// shows. The Win32 frame fills MenuFlags, then for each item of the popup
// calls MenuStateOf and applies EnableMenuItem / CheckMenuItem where the
// result says `governed`.
#pragma once

#include "document/canvas.h"

// Facts that don't live in the Canvas or the settings record.
struct MenuFlags {
  bool acquisitionAvailable = false;  // the camera or scanner service answers
  bool clipboardHasImage = false;
  bool filterPanelOpen = false;    // tsl_filter is shown
  bool settingsPanelOpen = false;  // tsl_subopt is shown
  bool magnifierOpen = false;      // the Loope window is shown
};

struct MenuItemState {
  bool governed;  // the rules say something about this item
  bool enabled;
  bool checked;
};

// The state of item id with the active canvas (null: no document). Flags
// kept in the settings record (Display Position, Darken outside Boundary,
// the outside display) are read from it.
MenuItemState MenuStateOf(int id, const Canvas* canvas, const MenuFlags& flags);

// A selection exists / has an outline to draw.
bool SelectionExists(const Canvas* canvas);
bool SelectionOutlineExists(const Canvas* canvas);

enum class MainMenu { Init, Child };  // nnMenuInit, nnMenuChild
// nnMenuInit while no document is open, nnMenuChild while one is.
MainMenu MainMenuFor(int openDocuments);
