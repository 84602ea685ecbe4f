// The CONTROL page of the control panel, as the panel's messages address
// it: message 1033 refreshes one page (wParam 1, lParam the page's number)
// or a set of pages (wParam 0, lParam a bit per page, 0 for all); message
// 1034 repaints every page.
#pragma once

#include <cstdint>

// Pages by number: "COLOR" 0, "PALETTE" 1, "LAYER" 2, "CONTROL" 3.
constexpr int kControlPageNumber = 3;

// Whether a message 1033 with these parameters is for the CONTROL page.
bool ControlPageRefreshes(intptr_t wParam, intptr_t lParam);

// Tells the control panel that the pen changed under it: all pages repaint.
void RepaintControlPanel();
