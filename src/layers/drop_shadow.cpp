#include "layers/drop_shadow.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "document/undo_history.h"
#include "pixel/mul_table.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "store/plane_ops.h"

namespace {

constexpr int kStringNoTransparency = 1403;

void FreePlanes(Plane** planes) {
  for (int position = 0; position < kPlanesPerLayer; ++position)
    PlaneStore.FreePlane(&planes[position]);
}

// The old layer's colours over the shadow colour, by its transparency, at
// the top left of the new image; the new transparency is the old one ORed
// with the blurred shadow there.
void PreBlend(Plane* oldImage, Plane* oldCover, Plane* newImage, Plane* newCover,
              const uint8_t shade[3]) {
  const int width = oldImage->width;
  std::vector<uint8_t> colours(static_cast<size_t>(width) * 3), cover(width), shadow(width);
  for (int y = 0; y < oldImage->height; ++y) {
    PlaneStore.ReadRow(oldImage, y, 0, width - 1, colours.data());
    PlaneStore.ReadRow(oldCover, y, 0, width - 1, cover.data());
    PlaneStore.ReadRow(newCover, y, 0, width - 1, shadow.data());
    for (int x = 0; x < width; ++x) {
      const unsigned m = cover[x];
      for (int c = 0; c < 3; ++c) {
        uint8_t& colour = colours[3 * x + c];
        colour = static_cast<uint8_t>(
            std::min<unsigned>(255, Mul255(colour, m) + Mul255(shade[c], 255 - m)));
      }
      shadow[x] = static_cast<uint8_t>(cover[x] | shadow[x]);
    }
    PlaneStore.WriteRow(newImage, y, 0, width - 1, colours.data());
    PlaneStore.WriteRow(newCover, y, 0, width - 1, shadow.data());
  }
}

}  // namespace

int DropShadow(Canvas* canvas, int layer, int dx, int dy, int blur, int red, int green, int blue) {
  PlaneSlot* slots = &canvas->planes[SlotIndex(layer, 0)];
  if (!slots[kTransparencyPosition].plane) {
    ShowCanvasBox(StringText(kStringNoTransparency), platform::MbOk | platform::MbIconWarning);
    return 0;
  }
  blur = std::max(blur, 0);
  const int width = slots[0].width + std::abs(dx) + blur;
  const int height = slots[0].height + std::abs(dy) + blur;
  Plane* grown[kPlanesPerLayer] = {};
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    if (!slots[position].plane) continue;
    grown[position] = PlaneStore.CreatePlane(width, height, static_cast<int>(slots[position].bits),
                                             0, 1, ImageBufferKind());
    if (!grown[position]) return FreePlanes(grown), 0;
  }
  Plane* work =
      PlaneStore.CreatePlane(width, height, 8, 0, 1, static_cast<uint32_t>(settings.workBuffer));
  if (!work) return FreePlanes(grown), 0;

  PastePlane(work, slots[kTransparencyPosition].plane, dx, dy);
  for (int pass = 0; pass < blur; ++pass) BoxBlur(work);
  PlaneStore.CopyPlane(grown[kTransparencyPosition], work);
  PlaneStore.FreePlane(&work);
  // BGR order, as the rows hold colours.
  const uint8_t shade[3] = {static_cast<uint8_t>(blue), static_cast<uint8_t>(green),
                            static_cast<uint8_t>(red)};
  PreBlend(slots[kImagePosition].plane, slots[kTransparencyPosition].plane, grown[kImagePosition],
           grown[kTransparencyPosition], shade);
  for (int position = 1; position < kPlanesPerLayer; ++position)
    if (position != kTransparencyPosition && grown[position])
      PastePlane(grown[position], slots[position].plane, 0, 0);

  for (int position = 0; position < kPlanesPerLayer; ++position) {
    if (grown[position]) {
      FreeSlotPlanes(slots[position]);
      slots[position].plane = grown[position];
    }
    slots[position].width = width;
    slots[position].height = height;
  }
  UndoHistory.RecordUndo(canvas, SlotIndex(layer, 0), 0, -1, -1, -1, -1, 0);
  return 1;
}
