#include "adjust/copy_between_channels.h"

#include "adjust/channel_copy.h"
#include "base/command_ids.h"
#include "base/command_registry.h"
#include "display/view_windows.h"
#include "document/canvas_manager.h"
#include "document/canvas_rows.h"
#include "document/undo_history.h"

AdjustWindows adjustWindows;
ChannelCopyChoice channelCopyChoice;

namespace {

// The copy changes the destination's plane, which need not be the active
// one: that plane gets a base record first, so that undo finds what it was.
int PlaneChangedBy(const Canvas* canvas, int destination) {
  const int base = ActiveLayerBase(canvas);
  switch (destination) {
    case kChannelMask:
      return base + kMaskPosition;
    case kChannelTransparency:
      return base + kTransparencyPosition;
    default:
      return destination >= kChannelFirstPlane ? base + PlanePositionOf(destination) : base;
  }
}

}  // namespace

int CopyBetweenChannels(Canvas* canvas) {
  if (!canvas || !adjustWindows.channelCopyDialog) return 0;
  ChannelCopyChoice choice = channelCopyChoice;
  if (!adjustWindows.channelCopyDialog(ChannelListNames(canvas), &choice)) return 0;
  channelCopyChoice = choice;
  const int origin = ChannelOfName(canvas, choice.originName);
  const int destination = ChannelOfName(canvas, choice.destinationName);
  if (origin < 0 || destination < 0) return 0;
  // The selection is no plane of the picture's history.
  const bool picture = destination != kChannelSelection;
  const int changed = PlaneChangedBy(canvas, destination);
  if (picture && changed != canvas->activePlane && canvas->planes[changed].plane)
    UndoHistory.RecordUndo(canvas, changed, 0, -1, -1, -1, -1, 0);
  if (!CopyChannels(canvas, origin, destination, choice.inverted, choice.insideOnly)) return 0;
  if (picture) {
    UndoHistory.RecordUndo(canvas, changed, 1, -1, -1, -1, -1, 0);
    CanvasManager.MarkModified(canvas);
  }
  if (viewWindows.invalidate) viewWindows.invalidate(canvas);
  return 1;
}

void InstallAdjust() {
  RegisterCanvasCommand(cmd::kCopyBetweenChannels,
                        [](Canvas* canvas, intptr_t) { CopyBetweenChannels(canvas); });
}
