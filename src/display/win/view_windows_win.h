// The Win32 side of the canvas view: fills `viewWindows` and the grid
// dialog, so that the display's portable logic reaches the windows of the
// documents, the status bar and the screen.
#pragma once

// The frame calls this once, at its creation.
void InstallViewWindows();
