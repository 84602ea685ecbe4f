// Connects the portable shell to the Windows side.
#pragma once

// Fills shellWindows with what the frame's windows do.
void ConnectShellWindows();
