// The frame's wheel, the key polling during strokes, and the keys of a
// document window. The Win32 side turns WM_MOUSEWHEEL, WM_TIMER and the
// document's WM_KEYDOWN into these calls and carries out what they return.
// Keys are Windows virtual-key numbers.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "document/canvas.h"
#include "base/hook_list.h"

namespace vk {
constexpr int kBack = 0x08;
constexpr int kMenu = 0x12;  // Alt
constexpr int kEscape = 0x1B;
constexpr int kDelete = 0x2E;
constexpr int k1 = 0x31;
constexpr int k9 = 0x39;
constexpr int kQ = 0x51;
constexpr int kApps = 0x5D;      // the context-menu key
constexpr int kAdd = 0x6B;       // numeric +
constexpr int kSubtract = 0x6D;  // numeric -
}  // namespace vk

// The wheel.
enum class WheelAction { None, PageLeft, PageRight, PageUp, PageDown, Command };
struct WheelResult {
  WheelAction action;
  int command;  // 11014 or 11015 for WheelAction::Command
};
WheelResult WheelRule(bool hasDocument, bool shift, bool ctrl, int delta);

// Key polling while a stroke runs.
constexpr unsigned kKeyPollMilliseconds = 200;
constexpr unsigned kFirstKeyPollTimer = 280;
// Numeric + and -, Esc, Q, the context key, Del, 1..9, Backspace.
const std::vector<int>& PolledKeys();
// WM_KEYDOWN, or WM_SYSKEYDOWN while Alt is held.
uint32_t PolledKeyMessage(bool altDown);

enum class KeyPollAction {
  Nothing,
  DropKeys,  // wait until no polled key is down, then drop keyboard messages
  SendKeys,  // send each polled key that is down to the document window
};
KeyPollAction KeyPollRule(bool strokeRunning, bool documentActive, bool modalDialogActive);
// The polled keys that are down now, in list order.
std::vector<int> PolledKeysDown(const std::function<bool(int key)>& isDown);

// Keys of the document window.
enum class DocumentKeyKind {
  None,
  Command,         // value: the command to route
  TakeBackPoint,   // Backspace under the Bezier tool
  CancelDraft,     // Esc: cancel the Draft, then command 20500
  SecondaryClick,  // Q or the context key: a right click at the pointer
  ChoosePen,       // value: 1..9
  StorePen,        // value: 1..9 (with Shift)
};
struct DocumentKey {
  DocumentKeyKind kind;
  int value;
};
DocumentKey DocumentKeyRule(int key, bool shift, const Canvas* canvas);

// What the selection and pen subsystems do for the keys that are theirs
// (TakeBackPoint, CancelDraft, SecondaryClick, ChoosePen, StorePen).
extern HookList<Canvas*, DocumentKey> documentKeyHooks;
// The document window's WM_KEYDOWN: routes command keys, runs the hooks for
// the others; Esc routes 20500 after the hooks.
void DocumentKeyDown(Canvas* canvas, int key, bool shift);
