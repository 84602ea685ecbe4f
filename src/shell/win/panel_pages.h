// The pages of the control panel behind their tabs: each page is made
// once, the tab chooses which one shows, and the choice is kept in the
// settings for the next run.
#pragma once

#include <windows.h>

// Makes the tabs and every page inside the panel; false when no page
// could be made.
bool CreatePanelPages(HWND panel);

// The control panel's messages that concern its pages: its size, the
// tabs' notices and the refreshes of messages 1033 and 1034. True when
// the message was one of them.
bool PanelPagesMessage(HWND panel, UINT message, WPARAM wParam, LPARAM lParam);
