#include "shell/layer_commands.h"

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "document/active_canvas.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "layers/layer_command.h"
#include "layers/layer_copy.h"
#include "layers/layer_windows.h"
#include "layers/merge_layers.h"
#include "platform/platform.h"
#include "resources/strings.h"
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

}  // namespace

void InstallLayerCommands() {
  RegisterFrameCommand(cmd::kMergeLayers, [](intptr_t) { MergeLayers(); });
  RegisterFrameCommand(cmd::kDuplicate, [](intptr_t) { Duplicate(); });
  layersTitleHooks.Add([](Canvas* canvas) {
    if (shellWindows.setTitle) shellWindows.setTitle(canvas, CanvasManager.TitleText(canvas));
  });
}
