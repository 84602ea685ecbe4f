// The frame window (class da00) and the windows it lays out.
#pragma once

#include <windows.h>

// Registers the frame's class and those of every window of the program;
// false if one fails, which ends the start quietly.
bool RegisterWindowClasses();

// WM_CREATE of the frame: the splash, the display test, the MDI client and
// the bars, the history in the menus, the files of the command line (a
// std::vector<std::string> in lpCreateParams). false fails the creation.
bool OnFrameCreate(HWND frame, const CREATESTRUCTW* create);

// Places the control panel, the tool bar, the status bar and the MDI
// client for the frame's present size and the settings.
void LayOutFrameWindows();
