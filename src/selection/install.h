// The selection joins the program: its tools, its commands on a canvas and
// its routes of the pointer. programFolder ends with a separator.
#pragma once

#include <string>

void InstallSelection(const std::string& programFolder);
