// The frame's bars: status bar (id 2), tool bar (id 3), control panel (id 4).
#pragma once

#include <windows.h>

bool RegisterSideWindowClasses();
// Creates the three, hidden until the frame lays them out, and docks the
// pages in the control panel.
bool CreateSideWindows(HWND frame);
// The height of a tool-bar button for the icon size of the settings.
int ToolButtonHeight();
