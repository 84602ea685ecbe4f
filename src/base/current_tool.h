// The tool in use: the command number of the tool, one global that every
// level reads and only the shell's tool change writes.
#pragma once

#include "base/command_ids.h"

// 20005, FreeHand(connect), at start.
extern int currentTool;
