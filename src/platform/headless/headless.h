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

// One step of the pointer script: where the pointer stands in the canvas
// view's client area and which keys and buttons are held
// (platform::VkLeftButton, platform::VkShift, 'Q', ...).
struct PointerSample {
  int x = 0, y = 0;
  std::vector<int> keysDown;
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
  // The pointer as polled now. Each DrainPointerMessages() steps to the
  // next sample of the script, as the moves queued meanwhile would; when
  // the script has run out the pointer stays and every key reads as up.
  PointerSample pointer;
  std::deque<PointerSample> pointerScript;
  int screenOriginX = 0, screenOriginY = 0;  // the view's client origin on the screen
  int drains = 0;
  uint32_t tick = 0;               // TickCount(); moved only by BusyWait and tests
  std::vector<uint32_t> busyWaits;  // every wait, in order
  // LocalTime() reads this when its year is set, else the real clock.
  platform::LocalDateTime localTime{};
  std::string userDataFolder;  // UserDataFolder(); empty: the system has none
};

// The recorded state; Reset() restores the start state.
State& Recorded();
void Reset();

// Appends steps to the pointer script.
void ScriptPointer(const std::vector<PointerSample>& samples);

// Messages of one kind sent to one window, in order.
std::vector<SentMessage> MessagesTo(platform::Window to, uint32_t message);

}  // namespace headless
