// Win32 side of the seam: the shell binds window roles to real windows.
#pragma once

#include <windows.h>

#include "platform/platform.h"

namespace platform {

void BindWindow(Window role, HWND window);
HWND BoundWindow(Window role);

std::wstring Widen(const std::string& utf8);
std::string Narrow(const std::wstring& wide);

}  // namespace platform
