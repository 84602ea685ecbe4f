// The tool bar's table: one row per possible button, in fixed order, ended
// by a row whose command is kToolListEnd. Row r's label is string 18000 + r.
#pragma once

#include <cstdint>

constexpr int32_t kToolListEnd = -10;
constexpr int32_t kToolGap = -1;       // a wide gap
constexpr int32_t kToolSmallGap = -2;  // a narrow gap

struct ToolItem {
  int32_t command;  // the command sent to the frame, or a gap
  int32_t shown;    // 1 while the button stands on the bar
};

// The live table; the settings record keeps the complement of `shown`.
extern ToolItem toolItems[];
