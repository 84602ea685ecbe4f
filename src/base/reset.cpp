#include "base/reset.h"

#include "base/command_registry.h"
#include "base/current_tool.h"

void ResetBase() {
  currentTool = cmd::kFreeHandConnect;
  ClearCommandHandlers();
}
