// "tsPickArea": the panels' wheel, bars, boxes, previews, swatches and
// cells. It draws nothing itself: its parent draws it on WM_DRAWITEM, as an
// owner-drawn control, and is told of the pointer on it.
#pragma once

#include <windows.h>

// To the parent while a button is held on an area (and once at the
// press): wParam low word the area's id, high word 1 for the right
// button; lParam the pointer in the area's client coordinates
// (GET_X_LPARAM, GET_Y_LPARAM).
constexpr UINT kMsgAreaPointer = WM_APP + 40;
// To the parent when the button is let go: wParam the area's id.
constexpr UINT kMsgAreaRelease = WM_APP + 41;

bool RegisterPickArea();

// While the right button is held on `area`, the pointer is told again
// every `ms` milliseconds even without moves: for the bars that approach
// the pointer step by step. 0 tells moves only.
void SetPickAreaRepeat(HWND area, UINT ms);

// The area's client size.
SIZE PickAreaSize(HWND area);
