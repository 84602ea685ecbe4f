// The two option panels that take turns in the CONTROL page's option area,
// and what they and the page say to each other.
#pragma once

#include <windows.h>

// To a panel: show the pen anew. The page sends it once the panel has
// its size, and whenever the pen changed elsewhere.
constexpr UINT kMsgRefreshPanel = WM_APP + 40;
// To the page: button 103 was pressed; the other panel takes the area.
constexpr UINT kMsgSwitchPanel = WM_APP + 41;

// The panels as children of the page, hidden; null on failure.
HWND CreateBrushPanel(HWND page);
HWND CreateDotPanel(HWND page);
