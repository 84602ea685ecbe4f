// Win32 side of the seam: the shell binds window roles to real windows.
#pragma once

#include <windows.h>

#include "platform/platform.h"

namespace platform {

void BindWindow(Window role, HWND window);
HWND BoundWindow(Window role);

// A cursor of the program's resources by name ("spoit", "cross"), the
// system's cross where they have none, shown now and kept as the custom
// cursor; null gives the usual arrow back.
void SetCustomCursor(const char* name);
// A custom cursor is shown.
bool CustomCursorShown();

std::wstring Widen(const std::string& utf8);
std::string Narrow(const std::wstring& wide);

}  // namespace platform
