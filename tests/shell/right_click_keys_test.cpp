#include <gtest/gtest.h>

#include "paint/stroke/stroke_engine.h"
#include "shell/input_rules.h"
#include "shell/right_click_keys.h"
#include "shell/shell_windows.h"
#include "support/fixture.h"

namespace {

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
