// The LAYER page's bitmaps (ly_disp, ly_alp_e, ...), loaded by name once
// and drawn stretched into a box.
#pragma once

#include <windows.h>

void DrawPanelBitmap(HDC dc, const wchar_t* name, const RECT& box);
