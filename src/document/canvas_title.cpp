// What the user reads about a plane: its label, and the window title.
#include "document/alpha_plane_name.h"
#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "resources/strings.h"

namespace {

constexpr int kStringDoubleAccuracy = 1100;
constexpr int kStringStandardAccuracy = 1101;
constexpr int kStringTitle = 1102;

}  // namespace

std::string CanvasManagerObject::PlaneLabel(const Canvas* canvas, int index) const {
  if (PositionOf(index) == kImagePosition)
    return FieldText(canvas->planes[index].name, kPlaneNameChars);
  return AlphaPlaneName(canvas, index);
}

std::string CanvasManagerObject::TitleText(const Canvas* canvas) const {
  const PlaneSlot& slot = canvas->planes[canvas->activePlane];
  const char* accuracy =
      StringText(slot.accuracyPlane ? kStringDoubleAccuracy : kStringStandardAccuracy);
  return FormatString(kStringTitle, accuracy, PlaneLabel(canvas, canvas->activePlane).c_str(),
                      FieldText(canvas->fileName, kFileNameChars).c_str());
}
