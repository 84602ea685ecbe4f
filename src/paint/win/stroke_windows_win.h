// The Win32 side of the stroke engine: fills `strokeWindows` with the
// cursors, the colour panel's refresh and the inverted drawings of the
// pen's outline and of the clone source's line.
#pragma once

// The frame calls this once, at its creation.
void InstallStrokeWindows();
