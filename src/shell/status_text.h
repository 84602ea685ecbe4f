// What the status bar shows for message 1024. The status bar window calls
// ApplyStatusMessage with wParam and lParam and repaints when it returns 1;
// it draws `shown`. For codes 14 and 15 lParam is a const char* text.
#pragma once

#include <cstdint>
#include <string>

#include "platform/platform.h"

struct StatusBarState {
  std::string shown;
  std::string resting;       // the text of code 15
  int heldX = 0, heldY = 0;  // the first corner of a drag (code 6)
};

// 1 when the shown text changed.
int ApplyStatusMessage(StatusBarState& state, intptr_t wParam, intptr_t lParam);
