// The PALETTE page of the control panel: the colour panel "pal_color"
// above four tabs of 28 cells; the fourth tab is the gradient's place. A
// left click on a cell picks it into the pen, a right click stores the pen
// in it. The page repaints on the panel messages 1033 and 1034.
#pragma once

#include <windows.h>

#include <string>

// Makes the page inside `parent`, 180 pixels wide; null when it can't be
// made. startFolder holds "palette\", ending with a separator.
HWND CreatePalettePage(HWND parent, const std::string& startFolder);
