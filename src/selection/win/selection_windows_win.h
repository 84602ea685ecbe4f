// The Win32 side of the selection: fills `selectionWindows`.
#pragma once

// The frame calls this once, at its creation.
void InstallSelectionWindows();
