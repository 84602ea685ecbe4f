// The popups of the LAYER page, loaded by name each time they open.
#pragma once

#include <windows.h>

#include <functional>

// Opens the first popup of menu `name` at a screen point, after `prepare`
// has greyed or added items; the item chosen, or 0.
int TrackNamedMenu(const wchar_t* name, HWND owner, POINT at,
                   const std::function<void(HMENU popup)>& prepare = {});

// The layer menu of a row's right press, or of the strip's Edit (on the
// active layer's row). The choice is posted to the list, which runs it.
void PopupRowMenu(HWND list, HWND owner, int row, POINT at);
