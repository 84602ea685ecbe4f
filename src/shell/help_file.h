// Help (13000, F1): the help document in the program folder, opened by
// the shell of the system with whatever shows HTML there.
#pragma once

#include <functional>
#include <string>

// The document's name in the program folder.
inline constexpr const char* kHelpFileName = "tesel_help.html";

// Opens the help document through openWithShell, which answers whether the
// system took it. A missing document, or one the system won't open, is
// named in a box (string 1311). 1 when it opened.
int OpenHelp(const std::string& programFolder,
             const std::function<bool(const std::string& path)>& openWithShell);
