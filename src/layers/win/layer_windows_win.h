// The layer level's dialogs on Windows.
#pragma once

// Fills layerWindows, all but the colour mixer and the modeless resize by
// sides, which their own windows fill.
void InstallLayerWindows();
