// The LAYER page of the control panel: the strip da00_ctrl3sub with the
// list of rows under it. The list is the window the program's layer
// messages go to.
#pragma once

#include <windows.h>

#include <string>

// Makes the page inside `panel`; null when it can't be made.
HWND CreateLayerPage(HWND panel, const std::string& programFolder);
