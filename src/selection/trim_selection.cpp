#include "selection/trim_selection.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/selection_rows.h"
#include "layers/layer_copy.h"
#include "layers/layer_resize.h"

namespace {

// A layer of the source and its rectangle inside the box, in canvas
// coordinates.
struct TrimmedPart {
  int layer;
  Rect whole, part;
};

std::vector<TrimmedPart> TrimmedParts(const Canvas* source) {
  const Rect box = Ordered(SelectionBox(source));
  std::vector<TrimmedPart> parts;
  for (int layer = 0; layer < CanvasManager.LayerCount(source); ++layer) {
    const PlaneSlot& image = source->planes[SlotIndex(layer, 0)];
    const Rect whole = Rect::OfSize(image.left, image.top, image.width, image.height);
    const Rect part{std::max(whole.left, box.left), std::max(whole.top, box.top),
                    std::min(whole.right, box.right), std::min(whole.bottom, box.bottom)};
    if (!part.Empty()) parts.push_back({layer, whole, part});
  }
  return parts;
}

}  // namespace

int RequestTrimmedCanvas(Canvas* source) {
  const std::vector<TrimmedPart> parts = TrimmedParts(source);
  if (parts.empty()) return 0;
  const Rect box = Ordered(SelectionBox(source));
  RequestLayersOf(source, kModeTrimSelection, CanvasManager.LayerCount(source));
  // The entries of the layers that take part move down over those that
  // don't, each with its part's place and size.
  CanvasRequestRecord& r = CanvasRequest;
  for (size_t n = 0; n < parts.size(); ++n) {
    const int from = parts[n].layer;
    const Rect& part = parts[n].part;
    r.left[n] = part.left - box.left, r.top[n] = part.top - box.top;
    r.width[n] = part.Width(), r.height[n] = part.Height();
    r.bits[n] = r.bits[from];
    r.planeCount[n] = r.planeCount[from];
    if (static_cast<int>(n) != from)
      std::memcpy(r.planeNames[SlotIndex(static_cast<int>(n), 0)], r.planeNames[SlotIndex(from, 0)],
                  sizeof r.planeNames[0] * kPlanesPerLayer);
  }
  r.layerCount = static_cast<int32_t>(parts.size());
  return 1;
}

int FillTrimmedCanvas(Canvas* canvas) {
  const Canvas* source = CanvasRequest.source;
  if (!source) return 0;
  const std::vector<TrimmedPart> parts = TrimmedParts(source);
  for (size_t n = 0; n < parts.size() && static_cast<int>(n) < CanvasRequest.layerCount; ++n) {
    const TrimmedPart& part = parts[n];
    const Rect place = Rect::OfSize(CanvasRequest.left[n], CanvasRequest.top[n], part.part.Width(),
                                    part.part.Height());
    if (!CopyLayerPlanes(&canvas->planes[SlotIndex(static_cast<int>(n), 0)],
                         &source->planes[SlotIndex(part.layer, 0)], place,
                         [&part](Plane* plane, int position) {
                           return PlaneOnBox(plane, position, part.whole, part.part);
                         }))
      return 0;
  }
  // A box reaching beyond the base layer leaves it off the origin.
  return CanvasManager.NormalizeOrigins(canvas);
}
