#include "base/current_tool.h"

int currentTool = cmd::kFreeHandConnect;
