// What the user reads about a plane: its label, and the window title.
#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "resources/strings.h"

namespace {

constexpr int kStringDoubleAccuracy = 1100;
constexpr int kStringStandardAccuracy = 1101;
constexpr int kStringTitle = 1102;

enum class FurtherKind { Mask, Transparency, LineDraw };

// The flags decide; a plane without one goes by its name's letter.
FurtherKind KindOf(const PlaneSlot& slot) {
  if (slot.planeFlags[kFlagLineDraw]) return FurtherKind::LineDraw;
  if (slot.planeFlags[kFlagMask]) return FurtherKind::Mask;
  if (slot.planeFlags[kFlagTransparency]) return FurtherKind::Transparency;
  return slot.name[1] == 'M' ? FurtherKind::Mask : FurtherKind::Transparency;
}

}  // namespace

std::string CanvasManagerObject::PlaneLabel(const Canvas* canvas, int index) const {
  const PlaneSlot* slots = &canvas->planes[SlotIndex(LayerOf(index), 0)];
  const int position = PositionOf(index);
  if (position == kImagePosition)
    return FieldText(slots[position].name, kPlaneNameChars);
  if (position == kMaskPosition) return "Mask";
  if (position == kTransparencyPosition) return "Transparency";
  // Further planes count up by kind; position 1 is the first mask, so the
  // further masks start at 2.
  const FurtherKind kind = KindOf(slots[position]);
  int count = kind == FurtherKind::Mask ? 2 : 1;
  for (int p = kFirstFurtherPosition; p < position; ++p)
    if (slots[p].plane && KindOf(slots[p]) == kind) ++count;
  const char* word = kind == FurtherKind::Mask           ? "Mask"
                     : kind == FurtherKind::Transparency ? "Transparency"
                                                         : "Line Draw";
  return word + std::to_string(count);
}

std::string CanvasManagerObject::TitleText(const Canvas* canvas) const {
  const PlaneSlot& slot = canvas->planes[canvas->activePlane];
  const char* accuracy =
      StringText(slot.accuracyPlane ? kStringDoubleAccuracy : kStringStandardAccuracy);
  return FormatString(kStringTitle, accuracy, PlaneLabel(canvas, canvas->activePlane).c_str(),
                      FieldText(canvas->fileName, kFileNameChars).c_str());
}
