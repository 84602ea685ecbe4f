#include "paint/stroke/stroke_snapshot.h"

#include <algorithm>
#include <vector>

#include "paint/modes/pen_rows.h"
#include "paint/modes/place_dab.h"
#include "platform/platform.h"
#include "settings/settings.h"

void FreeUndoPenSnapshot() {
  PlaneStore.FreePlane(&undoPenImage);
  PlaneStore.FreePlane(&undoPenTransparency);
}

void TakeUndoPenSnapshot(Canvas* canvas) {
  FreeUndoPenSnapshot();
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  const uint32_t kind = static_cast<uint32_t>(settings.workBuffer);
  undoPenImage = PlaneStore.CreatePlane(width, height, 24, 255, 1, kind);
  if (!undoPenImage) {
    platform::ShowMessageBox(platform::Window::Frame, "MEMORY ERROR", "test", platform::MbOk);
    return;
  }
  undoPenTransparency = PlaneStore.CreatePlane(width, height, 8, 0, 0, kind);
  // The rows reach one column past the canvas, as they always have; the
  // store clips what doesn't fit. Where a smaller layer doesn't reach, the
  // image stays white and the transparency empty.
  const size_t columns = static_cast<size_t>(width) + 1;
  std::vector<uint8_t> row(columns * 3);
  const int rows = ActiveSlot(canvas).height;
  for (int y = 0; y < rows; ++y) {
    std::fill(row.begin(), row.end(), 255);
    ReadImageRow(canvas, y, 0, width, row.data());
    PlaneStore.WriteRow(undoPenImage, y, 0, width, row.data());
    if (!undoPenTransparency) continue;
    std::fill(row.begin(), row.begin() + columns, 0);
    ReadLayerPlaneRow(canvas, y, 0, width, row.data(), kTransparencyPosition);
    PlaneStore.WriteRow(undoPenTransparency, y, 0, width, row.data());
  }
}
