// Shared set-up of the frame tests: a clean seam and shell, zeroed settings,
// and document "windows" that are their own canvases, so the window side
// the frame would do is played by small recorders.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "document/active_canvas.h"
#include "document/canvas_request.h"
#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "shell/command_routing.h"
#include "shell/documents.h"
#include "shell/file_history.h"
#include "shell/frame_geometry.h"
#include "shell/shell_windows.h"
#include "shell/tool_change.h"
#include "support/fixture.h"

class ShellTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    shellWindows.activeDocument = [] { return static_cast<WindowHandle>(ActiveCanvas()); };
    shellWindows.sendCommand = [](WindowHandle document, int id, intptr_t lParam) {
      CanvasCommand(static_cast<Canvas*>(document), id, lParam);
    };
    shellWindows.documents = [this] { return std::vector<WindowHandle>(open.begin(), open.end()); };
    shellWindows.askDocumentToClose = [this](WindowHandle document) {
      auto* canvas = static_cast<Canvas*>(document);
      if (!QueryCloseDocument(canvas)) return 0;
      Close(canvas);
      return 1;
    };
    shellWindows.createDocument = [this] { return Open() != nullptr; };
  }
  void TearDown() override {
    while (!open.empty()) Close(open.back());
    TeselTest::TearDown();
  }

  // A document window as the frame makes it from CanvasRequest, activated.
  Canvas* Open() {
    Canvas* canvas = OpenDocument(nullptr);
    if (!canvas) return nullptr;
    canvas->documentWnd = canvas;
    open.push_back(canvas);
    ActivateDocument(canvas, true);
    return canvas;
  }
  Canvas* OpenBlank(int width, int height) {
    RequestBlankCanvas(width, height, 96);
    return Open();
  }
  void Close(Canvas* canvas) {
    std::erase(open, canvas);
    CloseDocument(canvas);
  }

  std::vector<Canvas*> open;
};
