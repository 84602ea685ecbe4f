// Keys in a document: those polled while a stroke runs, and Q and the
// context key pressing the right button outside one.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "document/active_canvas.h"
#include "paint/stroke/stroke_engine.h"
#include "platform/headless/headless.h"
#include "shell/input_rules.h"
#include "shell/key_polling.h"
#include "shell/right_click_keys.h"
#include "shell/shell_windows.h"
#include "support/fixture.h"

namespace {

using Log = std::vector<std::string>;

// The windows of a tick played by a recorder: keys held in a set, each
// call logged. A pause lets go of every key once `pausesHeld` have passed.
class KeyPolling : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    canvas->documentWnd = &document;
    keyPollWindows.keyDown = [this](int key) { return held.count(key) > 0; };
    keyPollWindows.modalDialogActive = [this] { return modal; };
    keyPollWindows.dropKeyMessages = [this] { log.push_back("drop"); };
    keyPollWindows.pause = [this] {
      log.push_back("pause");
      if (--pausesHeld == 0) held.clear();
    };
    keyPollWindows.sendKey = [this](WindowHandle to, uint32_t message, int key) {
      log.push_back((to == &document ? "doc " : "other ") + std::to_string(message) + " " +
                    std::to_string(key));
    };
    keyPollWindows.paintNow = [this](WindowHandle to) {
      log.push_back(to == &document ? "paint doc" : "paint other");
    };
  }
  Log Tick() {
    log.clear();
    KeyPollTick();
    return log;
  }

  std::unique_ptr<Canvas> canvas = std::make_unique<Canvas>();
  int document = 0;  // stands for the document window
  std::set<int> held;
  bool modal = false;
  int pausesHeld = 0;
  Log log;
};

TEST_F(KeyPolling, HeldPolledKeysGoToTheDocumentOnlyWhileAStrokeRuns) {
  // Numeric +, the digit 3, A (not polled), Shift (not polled).
  held = {0x6B, 0x33, 0x41, 0x10};
  SetActiveCanvas(canvas.get());
  EXPECT_EQ(Tick(), Log{});  // no stroke

  StrokeEngine.running = 1;
  SetActiveCanvas(nullptr);
  EXPECT_EQ(Tick(), Log{});  // no document

  // The queue's copies go first, then WM_KEYDOWN (256) in list order, then
  // the document paints what they did.
  SetActiveCanvas(canvas.get());
  EXPECT_EQ(Tick(), (Log{"drop", "doc 256 107", "doc 256 51", "paint doc"}));

  held.insert(0x12);  // Alt: WM_SYSKEYDOWN (260)
  EXPECT_EQ(Tick(), (Log{"drop", "doc 260 107", "doc 260 51", "paint doc"}));

  appActive = 0;  // another program is in front
  EXPECT_EQ(Tick(), Log{});
  appActive = 1;

  // Nothing polled held: the queue is left alone.
  held = {0x41, 0x10};
  EXPECT_EQ(Tick(), Log{});

  // The rest of the list: numeric -, Esc, Q, the context key, Del, 9, Backspace.
  held = {0x08, 0x39, 0x2E, 0x5D, 0x51, 0x1B, 0x6D};
  EXPECT_EQ(Tick(), (Log{"drop", "doc 256 109", "doc 256 27", "doc 256 81", "doc 256 93",
                         "doc 256 46", "doc 256 57", "doc 256 8", "paint doc"}));
}

TEST_F(KeyPolling, UnderAModalDialogKeysAreWaitedOutAndDropped) {
  StrokeEngine.running = 1;
  SetActiveCanvas(canvas.get());
  modal = true;
  held = {0x1B, 0x10};
  pausesHeld = 2;
  EXPECT_EQ(Tick(), (Log{"drop", "pause", "drop", "pause", "drop"}));
  // Released already: one drop, no wait.
  EXPECT_EQ(Tick(), Log{"drop"});
  // No stroke: the dialog's keys are its own.
  StrokeEngine.running = 0;
  held = {0x1B};
  EXPECT_EQ(Tick(), Log{});
}

using RightClickKeys = TeselTest;

TEST_F(RightClickKeys, QAndTheContextKeyPressTheRightButtonOutsideAStroke) {
  int rightClicks = 0;
  shellWindows.rightClickAtPointer = [&] { ++rightClicks; };
  InstallRightClickKeys();
  auto key = [](int vk) { DocumentKeyDown(nullptr, vk, false); };

  key('Q');
  key(0x5D);  // the context key
  key('W');
  key(0x1B);  // Esc is not a press
  EXPECT_EQ(rightClicks, 2);
  StrokeEngine.running = 1;  // polled mid-stroke: no second loop
  key('Q');
  EXPECT_EQ(rightClicks, 2);
}

}  // namespace
