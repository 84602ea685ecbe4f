// The one base of the native tests: the seam's recordings cleared and every
// level at its start state before and after each test, layers stored flat,
// and canvases made as the New command makes them, freed at the end.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "adjust/reset.h"
#include "base/reset.h"
#include "display/reset.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/reset.h"
#include "file/reset.h"
#include "layers/reset.h"
#include "paint/reset.h"
#include "panels/reset.h"
#include "pixel/reset.h"
#include "selection/reset.h"
#include "platform/headless/headless.h"
#include "settings/reset.h"
#include "settings/settings.h"
#include "shell/reset.h"
#include "store/reset.h"

class TeselTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetAll();
    settings.imageBuffer = Physical;
  }
  void TearDown() override {
    for (auto& canvas : canvases) CanvasManager.FreeCanvasPlanes(canvas.get());
    canvases.clear();
    ResetAll();
  }

  static void ResetAll() {
    headless::Reset();
    ResetBase();
    ResetSettings();
    ResetStore();
    ResetPixel();
    ResetDocument();
    ResetDisplay();
    ResetLayers();
    ResetPaint();
    ResetSelection();
    ResetAdjust();
    ResetFile();
    ResetPanels();
    ResetShell();
  }
  // An empty record, freed with the test.
  Canvas* NewRecord() { return canvases.emplace_back(std::make_unique<Canvas>()).get(); }
  // A canvas as the New command makes it.
  Canvas* MakeBlank(int width, int height) {
    RequestBlankCanvas(width, height, 96);
    Canvas* canvas = NewRecord();
    EXPECT_EQ(CanvasManager.MakeCanvas(canvas, nullptr), 1);
    return canvas;
  }

  std::vector<std::unique_ptr<Canvas>> canvases;
};

// The texts of the message boxes shown so far, in order.
inline std::vector<std::string> BoxTexts() {
  std::vector<std::string> texts;
  for (const headless::ShownBox& box : headless::Recorded().boxes) texts.push_back(box.text);
  return texts;
}
