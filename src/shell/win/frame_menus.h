// The frame's menus: loading, the main menu of the moment, the file
// history items and the item states at WM_INITMENUPOPUP.
#pragma once

#include <windows.h>

#include "shell/menu_state.h"

// Both main menus, the window menu, the popup menus and the accelerators.
void LoadMenus();
void DestroyMenus();
// A popup menu loaded at start, by its name; null if none has that name.
HMENU PopupMenuNamed(const wchar_t* name);

// Installs nnMenuInit or nnMenuChild in the frame through the MDI client.
void SetMainMenu(MainMenu menu);

// Replaces the history items of both main menus with the present history.
void ShowHistoryInMenus();

// Enables and checks the items of a popup by the active document's state.
void UpdateMenuStates(HMENU popup);
