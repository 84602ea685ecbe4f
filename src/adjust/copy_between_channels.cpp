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

int CopyBetweenChannels(Canvas* canvas) {
  if (!canvas || !adjustWindows.channelCopyDialog) return 0;
  ChannelCopyChoice choice = channelCopyChoice;
  if (!adjustWindows.channelCopyDialog(ChannelListNames(canvas), &choice)) return 0;
  channelCopyChoice = choice;
  const int origin = ChannelOfName(canvas, choice.originName);
  const int destination = ChannelOfName(canvas, choice.destinationName);
  if (origin < 0 || destination < 0) return 0;
  // The selection is no plane of the picture's history. The plane written
  // need not be the active one: it gets a base record first, so that undo
  // finds what it was.
  const int position = ChannelPosition(destination);
  const int written = position < 0 ? -1 : ActiveLayerBase(canvas) + position;
  const bool recorded = written >= 0 && canvas->planes[written].plane;
  if (recorded && written != canvas->activePlane)
    UndoHistory.RecordUndo(canvas, written, 0, -1, -1, -1, -1, 0);
  if (!CopyChannels(canvas, origin, destination, choice.inverted, choice.insideOnly)) return 0;
  if (recorded) {
    UndoHistory.RecordUndo(canvas, written, 1, -1, -1, -1, -1, 0);
    CanvasManager.MarkModified(canvas);
  }
  if (viewWindows.invalidate) viewWindows.invalidate(canvas);
  return 1;
}

void InstallAdjust() {
  RegisterCanvasCommand(cmd::kCopyBetweenChannels,
                        [](Canvas* canvas, intptr_t) { CopyBetweenChannels(canvas); });
}
