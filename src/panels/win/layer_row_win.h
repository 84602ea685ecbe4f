// One row of the list: the modeless dialog da00_layer of a plane, with its
// name, display mode, eye or switch and thumbnail, its presses and drags.
#pragma once

#include <windows.h>

// A row in the list; the list places it and tells it its plane by
// RowOfWindow.
HWND CreateLayerRow(HWND list);
