#include "layers/plane_roles.h"

#include "display/redraw.h"
#include "document/canvas_manager.h"
#include "document/canvas_slots.h"
#include "platform/platform.h"
#include "resources/strings.h"

namespace {

// The flag of each kind, in PlaneKind's order, and the flags a kind
// clears before it sets its own.
constexpr int kKindFlag[kPlaneRoleCount] = {kFlagMask, kFlagTransparency, kFlagLineDraw};
constexpr int kKindFlagsEnd = kFlagLineDraw + 1;

bool IsFurtherPlane(const Canvas* canvas, int index) {
  return index >= 0 && index < kPlaneSlots && PositionOf(index) != kImagePosition &&
         canvas->planes[index].plane;
}

void SetKind(PlaneSlot& slot, PlaneRole role) {
  for (int flag = 0; flag < kKindFlagsEnd; ++flag) slot.planeFlags[flag] = 0;
  slot.planeFlags[kKindFlag[static_cast<int>(role)]] = 1;
}

// Everything that shows the layer learns of the change.
void Changed(Canvas* canvas, int index) {
  canvas->modified = 1;
  platform::SendToWindow(platform::Window::LayerPanel, platform::MsgLayerRedraw, -1,
                         reinterpret_cast<intptr_t>(canvas));
  const PlaneSlot& slot = canvas->planes[SlotIndex(LayerOf(index), kImagePosition)];
  RedrawCanvasBox(canvas, Rect::OfSize(slot.left, slot.top, slot.width, slot.height));
}

}  // namespace

int RoleOfPlane(const PlaneSlot& slot) {
  // A line drawing may carry another kind's flag from an older file; its
  // own flag decides, as it decides how the plane is cleared.
  for (int kind = kPlaneRoleCount - 1; kind >= 0; --kind)
    if (slot.planeFlags[kKindFlag[kind]]) return kind;
  return -1;
}

int MakePlaneOfRole(Canvas* canvas, int index, PlaneRole role) {
  const int added = CanvasManager.AddPlane(canvas, index, role == PlaneRole::Transparency ? 1 : 0);
  if (added < 0) return -1;
  PlaneSlot& slot = canvas->planes[added];
  SetKind(slot, role);
  if (role == PlaneRole::LineDrawing) FillPlane(slot.plane, 255);
  return added;
}

int AddPlaneOfRole(Canvas* canvas, int index, PlaneRole role) {
  const int added = MakePlaneOfRole(canvas, index, role);
  if (added >= 0) Changed(canvas, added);
  return added;
}

int ConvertPlane(Canvas* canvas, int index, PlaneRole role) {
  if (!IsFurtherPlane(canvas, index)) return 0;
  SetKind(canvas->planes[index], role);
  Changed(canvas, index);
  return 1;
}

int DeletePlaneAsked(Canvas* canvas, int index) {
  if (!IsFurtherPlane(canvas, index)) return 0;
  const std::string question =
      FormatString(kAskDeletePlane, CanvasManager.PlaneLabel(canvas, index).c_str());
  if (platform::ShowMessageBox(platform::Window::Frame, question, kProductName,
                               platform::MbOkCancel | platform::MbIconQuestion) != platform::IdOk)
    return 0;
  const int active = canvas->activePlane;
  if (CanvasManager.DeletePlane(canvas, index) < 0) return 0;
  if (LayerOf(active) == LayerOf(index) && active >= index)
    CanvasManager.SelectPlane(canvas, active == index ? SlotIndex(LayerOf(index), 0) : active - 1);
  Changed(canvas, index);
  return 1;
}

PlaneButtons PlaneButtonsFor(const Canvas* canvas, int index) {
  PlaneButtons buttons;
  if (index < 0 || index >= kPlaneSlots) return buttons;
  const int last = SlotIndex(LayerOf(index), kPlanesPerLayer - 1);
  buttons.add = canvas->planes[SlotIndex(LayerOf(index), 0)].plane && !canvas->planes[last].plane;
  if (!IsFurtherPlane(canvas, index)) return buttons;
  buttons.remove = true;
  const int kind = RoleOfPlane(canvas->planes[index]);
  for (int k = 0; k < kPlaneRoleCount; ++k) buttons.convertTo[k] = k != kind;
  return buttons;
}
