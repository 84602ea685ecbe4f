#include "layers/duplicates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/canvas_slots.h"
#include "layers/layer_copy.h"
#include "layers/layer_resize.h"
#include "resources/strings.h"
#include "store/plane_ops.h"
#include "store/rotate_plane.h"

DuplicateChoices lastDuplicateChoices;

namespace {

constexpr int kStringBelowZero = 6000;

Rect RequestedPlace(int layer) {
  return Rect::OfSize(CanvasRequest.left[layer], CanvasRequest.top[layer],
                      CanvasRequest.width[layer], CanvasRequest.height[layer]);
}

// Each layer of the source into its requested place, its planes made by
// make(source plane, position, layer's old place, new place).
template <typename Make>
int FillFromSource(Canvas* canvas, Make make) {
  const Canvas* source = CanvasRequest.source;
  if (!source) return 0;
  for (int layer = 0; layer < CanvasRequest.layerCount; ++layer) {
    const PlaneSlot* from = &source->planes[SlotIndex(layer, 0)];
    const Rect old = Rect::OfSize(from->left, from->top, from->width, from->height);
    const Rect place = RequestedPlace(layer);
    if (!CopyLayerPlanes(
            &canvas->planes[SlotIndex(layer, 0)], from, place,
            [&](Plane* plane, int position) { return make(plane, position, old, place); }))
      return 0;
  }
  return 1;
}

// The smallest x and y of a layer's corners turned about the canvas centre.
std::array<double, 2> TurnedCorner(const Canvas* canvas, const PlaneSlot& image, double degrees) {
  const double radians = degrees * std::numbers::pi / 180.0;
  const double c = std::cos(radians), s = std::sin(radians);
  const int x0 = image.left - canvas->canvasWidth / 2, y0 = image.top - canvas->canvasHeight / 2;
  std::array<double, 2> least{HUGE_VAL, HUGE_VAL};
  for (const int x : {x0, x0 + image.width})
    for (const int y : {y0, y0 + image.height}) {
      least[0] = std::min(least[0], x * c - y * s);
      least[1] = std::min(least[1], x * s + y * c);
    }
  return least;
}

}  // namespace

int RequestResizedCanvas(Canvas* source, const SideChoice& sides) {
  const Rect box = ResizedBox(source->planes[0], sides);
  if (box.Width() < 1 || box.Height() < 1) {
    ShowCanvasBox(StringText(kStringBelowZero), platform::MbOk | platform::MbIconWarning);
    return 0;
  }
  RequestLayersOf(source, kModeResizedCanvas, CanvasManager.LayerCount(source));
  // Layer 0 takes its new box where the source's stands; the fill brings
  // it to (0, 0), and the others with it.
  CanvasRequest.left[0] = box.left, CanvasRequest.top[0] = box.top;
  CanvasRequest.width[0] = box.Width(), CanvasRequest.height[0] = box.Height();
  return 1;
}

int FillResizedCanvas(Canvas* canvas) {
  if (!FillFromSource(canvas, PlaneOnBox)) return 0;
  return CanvasManager.NormalizeOrigins(canvas);
}

void RequestResizedDuplicate(Canvas* source, int width, int height) {
  const int oldWidth = std::max(source->canvasWidth, 1),
            oldHeight = std::max(source->canvasHeight, 1);
  RequestLayersOf(source, kModeResizedDuplicate, CanvasManager.LayerCount(source));
  CanvasRequestRecord& r = CanvasRequest;
  for (int layer = 0; layer < r.layerCount; ++layer) {
    r.left[layer] = r.left[layer] * width / oldWidth;
    r.top[layer] = r.top[layer] * height / oldHeight;
    r.width[layer] = std::max(1, r.width[layer] * width / oldWidth);
    r.height[layer] = std::max(1, r.height[layer] * height / oldHeight);
  }
}

int FillResizedDuplicate(Canvas* canvas) {
  return FillFromSource(canvas, [](Plane* plane, int, const Rect&, const Rect& place) {
    return ResizePlane(plane, place.Width(), place.Height(), ImageBufferKind(), 1, 0);
  });
}

void RequestRotatedDuplicate(Canvas* source, int degrees) {
  RequestLayersOf(source, kModeRotatedDuplicate, CanvasManager.LayerCount(source));
  CanvasRequestRecord& r = CanvasRequest;
  r.rotation = degrees;
  const std::array<double, 2> base = TurnedCorner(source, source->planes[0], degrees);
  for (int layer = 0; layer < r.layerCount; ++layer) {
    const PlaneSlot& image = source->planes[SlotIndex(layer, 0)];
    const std::array<double, 2> corner = TurnedCorner(source, image, degrees);
    r.left[layer] = static_cast<int>(std::floor(corner[0] - base[0]));
    r.top[layer] = static_cast<int>(std::floor(corner[1] - base[1]));
    RotatedSize(image.width, image.height, degrees, &r.width[layer], &r.height[layer]);
  }
}

int FillRotatedDuplicate(Canvas* canvas) {
  const double degrees = CanvasRequest.rotation;
  return FillFromSource(canvas,
                        [degrees](Plane* plane, int position, const Rect&, const Rect& place) {
                          // Corners the picture doesn't reach are white in the image, clear
                          // elsewhere.
                          return RotatePlane(plane, degrees, place.Width(), place.Height(),
                                             position == 0 ? 255 : 0, ImageBufferKind());
                        });
}
