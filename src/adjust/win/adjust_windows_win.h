// The Win32 side of the Image menu's adjustments: fills `adjustWindows`.
#pragma once

// The frame calls this once, at its creation.
void InstallAdjustWindows();
