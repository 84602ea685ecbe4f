#include "document/alpha_plane_name.h"

#include "resources/strings.h"

namespace {

constexpr int kStringMask = 5004;
constexpr int kStringTransparency = 5005;
constexpr int kStringLineDraw = 5007;

enum class FurtherKind { Mask, Transparency, LineDraw, None };

FurtherKind KindOf(const PlaneSlot& slot) {
  if (slot.planeFlags[kFlagMask]) return FurtherKind::Mask;
  if (slot.planeFlags[kFlagTransparency]) return FurtherKind::Transparency;
  if (slot.planeFlags[kFlagLineDraw]) return FurtherKind::LineDraw;
  return FurtherKind::None;
}

}  // namespace

std::string AlphaPlaneName(const Canvas* canvas, int planeIndex) {
  const int position = PositionOf(planeIndex);
  if (position == kMaskPosition) return StringText(kStringMask);
  if (position == kTransparencyPosition) return StringText(kStringTransparency);
  const PlaneSlot* slots = &canvas->planes[SlotIndex(LayerOf(planeIndex), 0)];
  const FurtherKind kind = KindOf(slots[position]);
  if (kind == FurtherKind::None) return "その他" + std::to_string(planeIndex);
  // Position 1 is the first mask; Line Draw planes count with transparency.
  const bool masks = kind == FurtherKind::Mask;
  int count = masks ? 2 : 1;
  for (int p = kFirstFurtherPosition; p < position; ++p) {
    const FurtherKind other = slots[p].plane ? KindOf(slots[p]) : FurtherKind::None;
    if (other != FurtherKind::None && (other == FurtherKind::Mask) == masks) ++count;
  }
  const int word = masks                               ? kStringMask
                   : kind == FurtherKind::Transparency ? kStringTransparency
                                                       : kStringLineDraw;
  return StringText(word) + std::to_string(count);
}
