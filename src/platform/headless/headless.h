// Control of the headless platform for native tests: what was shown and
// sent is recorded, answers come from a script, and system failures can be
// injected.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace headless {

struct ShownBox {
  platform::Window owner;
  std::string text;
  std::string caption;
  unsigned style;
};

struct SentMessage {
  platform::Window to;
  uint32_t message;
  intptr_t wParam;
  intptr_t lParam;
};

struct State {
  std::vector<ShownBox> boxes;
  std::vector<SentMessage> messages;
  std::deque<int> boxAnswers;   // answers to the next boxes; IdOk (or IdYes) when empty
  int failMappings = 0;         // the next n CreateMapping calls fail
  int failCommits = 0;          // the next n CommitRange calls fail
  int failReserves = 0;         // the next n ReserveRange calls fail
  int waitCursorDepth = 0;
  int priority = platform::PriorityNormal;
  std::vector<int> prioritiesSet;  // every priority set, in order
};

// The recorded state; Reset() restores the start state.
State& Recorded();
void Reset();

// Messages of one kind sent to one window, in order.
std::vector<SentMessage> MessagesTo(platform::Window to, uint32_t message);

}  // namespace headless
