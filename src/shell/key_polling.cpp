#include "shell/key_polling.h"

#include <vector>

#include "document/active_canvas.h"
#include "paint/stroke/stroke_engine.h"
#include "shell/input_rules.h"

KeyPollWindows keyPollWindows;
int appActive = 1;

namespace {

void WaitForRelease(const KeyPollWindows& w) {
  // Dropping the messages also lets the system see the keys go up.
  while (!PolledKeysDown(w.keyDown).empty()) {
    w.dropKeyMessages();
    w.pause();
  }
  w.dropKeyMessages();
}

void SendHeldKeys(const KeyPollWindows& w, WindowHandle document) {
  const std::vector<int> down = PolledKeysDown(w.keyDown);
  if (down.empty()) return;
  // Taking the queued messages also brings the synchronous Shift state up
  // to date, which the document reads for 1..9.
  w.dropKeyMessages();
  const uint32_t message = PolledKeyMessage(w.keyDown(vk::kMenu));
  for (int key : down) w.sendKey(document, message, key);
  w.paintNow(document);
}

}  // namespace

void KeyPollTick() {
  const KeyPollWindows& w = keyPollWindows;
  if (!w.keyDown || !appActive) return;
  const Canvas* canvas = ActiveCanvas();
  const bool modal = w.modalDialogActive && w.modalDialogActive();
  switch (KeyPollRule(StrokeEngine.running != 0, canvas != nullptr, modal)) {
    case KeyPollAction::Nothing: return;
    case KeyPollAction::DropKeys: WaitForRelease(w); return;
    case KeyPollAction::SendKeys: SendHeldKeys(w, canvas->documentWnd); return;
  }
}
