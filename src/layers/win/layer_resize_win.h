// tsl_layresize on Windows: the modeless dialog of resizing a layer by its
// sides, over the portable session of layers/layer_resize.h.
#pragma once

#include <windows.h>

// Fills the resize members of layerWindows; the frame calls it once.
void InstallLayerResizeWindow();

// The message loop offers each message to the open dialog first, so that
// its keys (Tab, Enter, Esc) work; true when the dialog took it.
bool LayerResizeDialogMessage(MSG* message);
