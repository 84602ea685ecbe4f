#include "display/grid_command.h"

#include <algorithm>

#include "display/view_windows.h"

int ToggleGrid(Canvas* canvas) {
  if (canvas->gridOn) {
    canvas->gridOn = 0;
    return 1;
  }
  GridChoice choice{canvas->gridX, canvas->gridY, canvas->gridSnap ? 1 : 0};
  if (!viewWindows.gridDialog || !viewWindows.gridDialog(&choice)) return 0;
  canvas->gridX = std::clamp(choice.pitchX, kMinGridPitch, kMaxGridPitch);
  canvas->gridY = std::clamp(choice.pitchY, kMinGridPitch, kMaxGridPitch);
  canvas->gridSnap = choice.snap ? 1 : 0;
  canvas->gridOn = 1;
  return 1;
}
