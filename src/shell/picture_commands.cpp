// Whole-plane operations of the active layer, each after its question, and
// the two test commands of the row cache.
#include "document/canvas_manager.h"
#include "document/canvas_rows.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "shell/canvas_command_groups.h"
#include "base/command_ids.h"
#include "shell/command_routing.h"
#include "shell/shell_windows.h"
#include "store/plane_store.h"

namespace {

bool Confirmed(int question) {
  return platform::ShowMessageBox(platform::Window::Frame, StringText(question), kProductName,
                                  platform::MbOkCancel | platform::MbIconQuestion) ==
         platform::IdOk;
}

// Blank Sheet asks how to clear an image plane, and asks before clearing
// any other plane.
int BlankSheet(Canvas* canvas) {
  if (!ActiveIsImage(canvas))
    return Confirmed(kAskClearPlane) && CanvasManager.ClearPlane(canvas);
  if (!shellWindows.blankSheetDialog) return 0;
  BlankSheetChoice choice;
  if (!shellWindows.blankSheetDialog(choice)) {
    PlaneStore.FreePlane(&choice.texture);
    return 0;
  }
  const int done = CanvasManager.BlankSheet(canvas, choice.kind, choice.texture);
  PlaneStore.FreePlane(&choice.texture);
  return done;
}

int ClearingCommand(Canvas* canvas, int id) {
  switch (id) {
    case cmd::kBlankSheet: return BlankSheet(canvas);
    case cmd::kInitializeMask:
      return Confirmed(kAskInitializeMask) && CanvasManager.InitializeMask(canvas);
    case cmd::kInitializeTransparency:
      return Confirmed(kAskInitializeTransparency) && CanvasManager.InitializeTransparency(canvas);
    case cmd::kNegative: return CanvasManager.Negative(canvas);
    default: return 0;
  }
}

// The row caches of the active layer, wide or narrow, announced as the
// command does.
void SetRowCache(Canvas* canvas, bool wide) {
  platform::ShowMessageBox(platform::Window::Frame, wide ? "キャッシュOn" : "キャッシュOff", "test",
                           platform::MbOk);
  SetLayerRowCaches(canvas, wide);
}

}  // namespace

int PictureCommand(Canvas* canvas, int id) {
  switch (id) {
    case cmd::kBlankSheet:
    case cmd::kInitializeMask:
    case cmd::kInitializeTransparency:
    case cmd::kNegative:
      if (ClearingCommand(canvas, id)) {
        CanvasManager.MarkModified(canvas);
        if (shellWindows.viewChanged) shellWindows.viewChanged(canvas);
        undoSnapshotHooks.Run(canvas);
      }
      return 1;
    case cmd::kRowCacheOn:
    case cmd::kRowCacheOff: SetRowCache(canvas, id == cmd::kRowCacheOn); return 1;
    default: return 0;
  }
}
