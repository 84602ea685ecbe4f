// The table of every command, generated from commands.txt: who handles it,
// its name as menus show it, and whether it changes the tool. Routing reads
// the owner. Rows are in the order of their numbers.
#pragma once

#include <cstddef>

enum class CommandOwner {
  Frame,   // the frame's handler consumes it
  Canvas,  // the active document's handler does it
};

struct CommandInfo {
  int id;
  const char* menuText;  // empty for a command without a name
  CommandOwner owner;
  bool toolChange;  // the command sets currentTool
};

extern const CommandInfo kCommandTable[];
extern const size_t kCommandCount;

// The row of a command; null for a number that names no command.
inline const CommandInfo* FindCommand(int id) {
  for (size_t i = 0; i < kCommandCount; ++i)
    if (kCommandTable[i].id == id) return &kCommandTable[i];
  return nullptr;
}
