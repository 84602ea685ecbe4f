#include "shell/layer_commands.h"

#include <cmath>

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "document/active_canvas.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "layers/duplicates.h"
#include "layers/layer_command.h"
#include "layers/layer_copy.h"
#include "layers/layer_resize.h"
#include "layers/layer_windows.h"
#include "layers/merge_layers.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "selection/trim_selection.h"
#include "shell/documents.h"
#include "shell/shell_windows.h"

namespace {

constexpr int kStringNewFailed = 1303;

// The document CanvasRequest describes.
void CreateDocument() {
  if (!shellWindows.createDocument) return;
  if (!shellWindows.createDocument())
    platform::ShowMessageBox(platform::Window::Frame, StringText(kStringNewFailed), kProductName,
                             platform::MbOk | platform::MbIconError);
}

void MergeLayers() {
  Canvas* canvas = ActiveCanvas();
  MergeChoice choice;
  if (!canvas || !layerWindows.mergeLayersDialog || !layerWindows.mergeLayersDialog(&choice))
    return;
  if (choice.kind == MergeKind::FlattenedLayer) {
    if (NewFlattenedLayer(canvas, choice.mergeOption) > 0) LayersChanged(canvas);
    return;
  }
  RequestMergedCanvas(canvas, choice.kind, choice.mergeOption);
  CreateDocument();
}

void Duplicate() {
  Canvas* canvas = ActiveCanvas();
  if (!canvas) return;
  RequestLayersOf(canvas, kModeDuplicate, CanvasManager.LayerCount(canvas));
  CreateDocument();
}

// The dialog's choice becomes the request of a new document.
void ResizedDuplicate() {
  ResizeChoice& choice = lastDuplicateChoices.size;
  Canvas* canvas = ActiveCanvas();
  if (!canvas || !layerWindows.resizeDialog) return;
  if (choice.width < 1) choice = {canvas->canvasWidth, canvas->canvasHeight, true};
  if (!layerWindows.resizeDialog(canvas, &choice)) return;
  RequestResizedDuplicate(canvas, choice.width, choice.height);
  CreateDocument();
}

void RotatedDuplicate() {
  RotateChoice& choice = lastDuplicateChoices.rotation;
  Canvas* canvas = ActiveCanvas();
  if (!canvas || !layerWindows.rotateDialog || !layerWindows.rotateDialog(canvas, &choice)) return;
  RequestRotatedDuplicate(canvas, static_cast<int>(std::lround(choice.degrees)));
  CreateDocument();
}

void DuplicateOnResizedCanvas() {
  SideChoice& choice = lastDuplicateChoices.canvasSides;
  Canvas* canvas = ActiveCanvas();
  if (!canvas || !layerWindows.canvasResizeDialog ||
      !layerWindows.canvasResizeDialog(canvas, &choice))
    return;
  if (RequestResizedCanvas(canvas, choice)) CreateDocument();
}

void TrimSelection() {
  if (Canvas* canvas = ActiveCanvas(); canvas && RequestTrimmedCanvas(canvas)) CreateDocument();
}

}  // namespace

void InstallLayerCommands() {
  RegisterFrameCommand(cmd::kMergeLayers, [](intptr_t) { MergeLayers(); });
  RegisterFrameCommand(cmd::kDuplicate, [](intptr_t) { Duplicate(); });
  RegisterFrameCommand(cmd::kMakeResizedDuplicate, [](intptr_t) { ResizedDuplicate(); });
  RegisterFrameCommand(cmd::kMakeRotatedDuplicate, [](intptr_t) { RotatedDuplicate(); });
  RegisterFrameCommand(cmd::kDuplicateOnResizedCanvas,
                       [](intptr_t) { DuplicateOnResizedCanvas(); });
  RegisterFrameCommand(cmd::kTrimSelection, [](intptr_t) { TrimSelection(); });
  documentReleaseHooks.Add(ResizeCanvasGoing);
  layersTitleHooks.Add([](Canvas* canvas) {
    if (shellWindows.setTitle) shellWindows.setTitle(canvas, CanvasManager.TitleText(canvas));
  });
}
