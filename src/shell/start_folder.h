// The folder of the executable, from its module path. The Win32 side
// passes CharNextA, so a trail byte that looks like a backslash isn't
// taken for one.
#pragma once

#include <string>

using NextCharFn = const char* (*)(const char* p);

// The path cut after its last backslash (kept). Empty when the path holds
// no backslash: the start fails with string 1309.
std::string StartFolderOf(const char* modulePath, NextCharFn next);
