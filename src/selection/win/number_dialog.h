// The number dialog: one value in a range.
#pragma once

#include <string>

int RunNumberDialog(const std::string& title, int low, int high, int* value);
