// The list of rows (class LayManClass) under the strip of the LAYER page.
// It is the window that the rest of the program tells of changes to the
// stack (messages 1036 and 1037).
#pragma once

#include <windows.h>

bool RegisterLayerListClass();
HWND CreateLayerList(HWND page);

// What the rows and the strip post to the list, so that it runs outside
// the row that asked for it: a rebuild destroys that row.
constexpr UINT kMsgLayOutRows = WM_APP + 2;    // rows placed and painted again
constexpr UINT kMsgRebuildRows = WM_APP + 3;   // rows made again for the active canvas
constexpr UINT kMsgLayerItem = WM_APP + 4;     // wParam an item of the layer menus, lParam a plane
constexpr UINT kMsgDeletePlane = WM_APP + 5;   // lParam the plane of a further plane's row
// To the page after the rows changed: the strip shows the active plane.
constexpr UINT kMsgStripRefresh = WM_APP + 6;
