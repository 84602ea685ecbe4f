// The CONTROL page, docked in the control panel: the pen mode, C/Thick and
// density, the option area with the brush or dot pen panel, the paint
// options and the colour mask. The control panel passes it its size and
// the panel messages 1033 and 1034.
#pragma once

#include <windows.h>

#include <string>

// Lists the dot pen families of the program folder and makes the page
// inside `panel`, filling it; null when it can't be made.
HWND CreateControlPage(HWND panel, const std::string& programFolder);
