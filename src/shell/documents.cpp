#include "shell/documents.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "document/active_canvas.h"
#include "document/canvas_manager.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "settings/word_halves.h"
#include "base/command_ids.h"
#include "shell/command_routing.h"
#include "shell/settings_files.h"
#include "shell/shell_windows.h"
#include "shell/tool_change.h"

HookList<Canvas*> beforeCloseHooks;
HookList<Canvas*> documentReleaseHooks;
HookList<Canvas*> activationHooks;
HookList<Canvas*> deactivationHooks;
HookList<> frameDestroyHooks;
HookList<> preferencesClosedHooks;

namespace {

constexpr int kStringSaveChanges = 1404;

std::vector<Canvas*> openDocuments;
Canvas* activeDocument = nullptr;

}  // namespace

Canvas* OpenDocument(WindowHandle documentWnd) {
  // The record is large and zeroed; calloc keeps a failure a null result.
  auto* canvas = static_cast<Canvas*>(std::calloc(1, sizeof(Canvas)));
  if (!canvas) return nullptr;
  if (!CanvasManager.MakeCanvas(canvas, documentWnd)) {
    std::free(canvas);
    return nullptr;
  }
  openDocuments.push_back(canvas);
  return canvas;
}

int QueryCloseDocument(Canvas* canvas) {
  beforeCloseHooks.Run(canvas);
  if (!canvas->modified) return 1;
  const int answer =
      platform::ShowMessageBox(platform::Window::Frame, StringText(kStringSaveChanges),
                               kProductName, platform::MbYesNoCancel | platform::MbIconQuestion);
  if (answer == platform::IdCancel) return 0;
  if (answer == platform::IdNo) {
    canvas->modified = 0;
    return 1;
  }
  // A save that was cancelled or failed leaves the picture modified, and
  // then the document stays.
  CanvasCommand(canvas, cmd::kSave);
  return canvas->modified ? 0 : 1;
}

void CloseDocument(Canvas* canvas) {
  canvas->closing = 1;
  platform::SendToWindow(platform::Window::LayerPanel, platform::MsgCanvasGoing, 0,
                         reinterpret_cast<intptr_t>(canvas));
  documentReleaseHooks.Run(canvas);
  CanvasManager.FreeCanvasPlanes(canvas);
  if (activeDocument == canvas) {
    activeDocument = nullptr;
    SetActiveCanvas(nullptr);
  }
  std::erase(openDocuments, canvas);
  std::free(canvas);
}

void ActivateDocument(Canvas* canvas, bool active) {
  if (!canvas) return;
  if (!active) {
    draftStoreHooks.Run(canvas);
    deactivationHooks.Run(canvas);
    CanvasManager.ResetAccuracy(canvas, 0);
    if (activeDocument == canvas) {
      activeDocument = nullptr;
      SetActiveCanvas(nullptr);
    }
    return;
  }
  activeDocument = canvas;
  SetActiveCanvas(canvas);
  toolStateHooks.Run();
  CanvasManager.ResetAccuracy(canvas, 1);
  platform::SendToWindow(platform::Window::LayerPanel, platform::MsgLayerRedraw, -1,
                         reinterpret_cast<intptr_t>(canvas));
  activationHooks.Run(canvas);
}

int OpenDocumentCount() { return static_cast<int>(openDocuments.size()); }

int CloseAllDocuments() {
  if (shellWindows.documents && shellWindows.askDocumentToClose)
    for (WindowHandle document : shellWindows.documents())
      if (!shellWindows.askDocumentToClose(document)) break;
  return OpenDocumentCount() == 0;
}

int FrameClosing(const FramePlacementRecord& placement, const std::string& startFolder) {
  settings.maximized = placement.maximized;
  settings.framePosition = Halves(placement.x, placement.y);
  settings.frameSize = Halves(placement.width, placement.height);
  SaveSettings(startFolder);
  return CloseAllDocuments();
}
