#include "shell/input_rules.h"

#include "base/command_ids.h"
#include "shell/command_routing.h"
#include "shell/menu_state.h"
#include "shell/tool_change.h"

HookList<Canvas*, DocumentKey> documentKeyHooks;

namespace {
constexpr uint32_t kWmKeyDown = 0x0100;
constexpr uint32_t kWmSysKeyDown = 0x0104;
}  // namespace

WheelResult WheelRule(bool hasDocument, bool shift, bool ctrl, int delta) {
  if (!hasDocument) return {WheelAction::None, 0};
  if (shift || ctrl) {
    if (delta > 0) return {shift ? WheelAction::PageLeft : WheelAction::PageUp, 0};
    if (delta < 0) return {shift ? WheelAction::PageRight : WheelAction::PageDown, 0};
    return {WheelAction::None, 0};
  }
  // Only a positive delta zooms in; anything below 1 zooms out.
  return {WheelAction::Command, delta > 0 ? cmd::kZoomIn : cmd::kZoomOut};
}

const std::vector<int>& PolledKeys() {
  static const std::vector<int> keys = [] {
    std::vector<int> list = {vk::kAdd, vk::kSubtract, vk::kEscape, vk::kQ, vk::kApps, vk::kDelete};
    for (int digit = vk::k1; digit <= vk::k9; ++digit) list.push_back(digit);
    list.push_back(vk::kBack);
    return list;
  }();
  return keys;
}

uint32_t PolledKeyMessage(bool altDown) { return altDown ? kWmSysKeyDown : kWmKeyDown; }

KeyPollAction KeyPollRule(bool strokeRunning, bool documentActive, bool modalDialogActive) {
  if (!strokeRunning || !documentActive) return KeyPollAction::Nothing;
  return modalDialogActive ? KeyPollAction::DropKeys : KeyPollAction::SendKeys;
}

std::vector<int> PolledKeysDown(const std::function<bool(int key)>& isDown) {
  std::vector<int> down;
  for (int key : PolledKeys())
    if (isDown(key)) down.push_back(key);
  return down;
}

DocumentKey DocumentKeyRule(int key, bool shift, const Canvas* canvas) {
  if (key >= vk::k1 && key <= vk::k9)
    return {shift ? DocumentKeyKind::StorePen : DocumentKeyKind::ChoosePen, key - vk::k1 + 1};
  switch (key) {
    case vk::kBack:
      if (currentTool == cmd::kBezier) return {DocumentKeyKind::TakeBackPoint, 0};
      break;
    case vk::kEscape: return {DocumentKeyKind::CancelDraft, 0};
    case vk::kDelete:
      if (SelectionExists(canvas)) return {DocumentKeyKind::Command, cmd::kDelete};
      break;
    case vk::kQ:
    case vk::kApps: return {DocumentKeyKind::SecondaryClick, 0};
    case vk::kAdd: return {DocumentKeyKind::Command, cmd::kZoomIn};
    case vk::kSubtract: return {DocumentKeyKind::Command, cmd::kZoomOut};
    default: break;
  }
  return {DocumentKeyKind::None, 0};
}

void DocumentKeyDown(Canvas* canvas, int key, bool shift) {
  const DocumentKey action = DocumentKeyRule(key, shift, canvas);
  switch (action.kind) {
    case DocumentKeyKind::None: return;
    case DocumentKeyKind::Command: RouteCommand(action.value, 0); return;
    default:
      documentKeyHooks.Run(canvas, action);
      if (action.kind == DocumentKeyKind::CancelDraft) RouteCommand(cmd::kDeselect, 0);
  }
}
