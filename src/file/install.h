// The file level joins the program: the plug-ins of the program folder
// (ending with a separator) are found, and a canvas made from a file reads
// its rows through them.
#pragma once

#include <string>

void InstallFile(const std::string& programFolder);
