// What the pen's panels share: where their resources are, and their popups.
#pragma once

#include <windows.h>

// Popup items are numbered from 1, since 0 means none was chosen.
constexpr int kMenuBase = 1;
// After the text of a button that opens a popup.
constexpr wchar_t kPopupMark[] = L" \u25BE";

// Scales a dialog made from a template, and each of its controls, so that
// it is `width` pixels wide: the column of the control panel is as wide as
// it is, whatever the dialog units of the system's font.
void FitDialogToWidth(HWND dialog, int width);

// After a click, a slide or a pick on the panels the keyboard goes back to
// the active picture, whose keys (1 to 9, Q, the zoom keys) must keep
// working; number fields keep it while they are typed in.
void GiveFocusBack();

// A popup menu under a button; the item chosen, or 0.
int PopupUnder(HWND button, HMENU menu);
