// The Win32 side of Detect Selection: the modeless tsl_selext.
#pragma once

#include <windows.h>

// Fills the dialog's members of `selectionWindows`.
void InstallDetectSelectionWindow();

// The main loop gives the open dialog its keys first: true when it took
// the message.
bool DetectSelectionDialogMessage(MSG* message);
