// Paths of the side files beside the program.
#pragma once

#include <string>
#include <string_view>

// folder + name, where folder ends with a path separator and name may hold
// subfolders written with backslashes. The separators of name follow the
// one the folder ends with, so "palette\pal.dat" works in either form.
std::string SidePath(const std::string& folder, std::string_view name);
