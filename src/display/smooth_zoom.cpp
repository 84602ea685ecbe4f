#include "display/smooth_zoom.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "display/view_windows.h"
#include "document/canvas_manager.h"
#include "document/undo_history.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "store/dib.h"
#include "store/plane_ops.h"

std::string smoothZoomFolder;

namespace {

constexpr int kStringSavingFailed = 1301;
constexpr int kProgressLayers = 127;

struct Box {
  int left, top, right, bottom;  // inclusive
  bool Empty() const { return right < left || bottom < top; }
};

Box SlotBox(const PlaneSlot& slot) {
  return {slot.left, slot.top, slot.left + slot.width - 1, slot.top + slot.height - 1};
}

Box Intersect(const Box& a, const Box& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

Box ChosenBox(const Canvas* canvas) {
  const int factor = canvas->smoothZoom;
  return {canvas->smoothZoomLeft, canvas->smoothZoomTop,
          canvas->smoothZoomLeft + canvas->canvasWidth / factor - 1,
          canvas->smoothZoomTop + canvas->canvasHeight / factor - 1};
}

void Progress(int layer) { platform::ShowProgress(layer * 100 / kProgressLayers); }

void ZoomError() {
  platform::ShowMessageBox(platform::Window::Frame, "ZOOM ERROR", kProductName,
                           platform::MbOk | platform::MbIconError);
}

// Every plane goes to its file before any slot changes, so that a failed
// write leaves the canvas as it was.
bool ParkAll(Canvas* canvas) {
  std::vector<std::string> written;
  for (int layer = 0; layer < CanvasManager.LayerCount(canvas); ++layer)
    for (int position = 0; position < kPlanesPerLayer; ++position) {
      Plane* plane = canvas->planes[SlotIndex(layer, position)].plane;
      if (!plane) continue;
      const std::string path = SmoothZoomFile(canvas, layer, position);
      if (!SaveBmp(plane, path)) {
        for (const std::string& done : written) platform::RemoveFile(done);
        platform::RemoveFile(path);
        return false;
      }
      written.push_back(path);
    }
  return true;
}

// The slot takes the enlarged part of its plane inside the chosen box. A
// plane wholly outside it keeps one enlarged pixel off the canvas, where
// nothing shows it.
void Enlarge(PlaneSlot& slot, const Box& chosen, int factor, int smooth) {
  slot.savedLeft = slot.left, slot.savedTop = slot.top;
  slot.savedWidth = slot.width, slot.savedHeight = slot.height;
  PlaneStore.FreePlane(&slot.accuracyPlane);
  const Box part = Intersect(SlotBox(slot), chosen);
  Plane* copy = part.Empty() ? CropPlane(slot.plane, 0, 0, 0, 0)
                             : CropPlane(slot.plane, part.left - slot.left, part.top - slot.top,
                                         part.right - slot.left, part.bottom - slot.top);
  PlaneStore.FreePlane(&slot.plane);
  if (part.Empty()) {
    slot.left = slot.top = -factor;
    slot.width = slot.height = factor;
  } else {
    slot.left = (part.left - chosen.left) * factor;
    slot.top = (part.top - chosen.top) * factor;
    slot.width = (part.right - part.left + 1) * factor;
    slot.height = (part.bottom - part.top + 1) * factor;
  }
  if (copy)
    slot.plane = ResizePlane(copy, slot.width, slot.height, settings.imageBuffer, smooth, 0);
  PlaneStore.FreePlane(&copy);
}

bool WasEnlarged(const Canvas* canvas, int layer) {
  for (int position = 0; position < kPlanesPerLayer; ++position)
    if (canvas->planes[SlotIndex(layer, position)].savedWidth > 0) return true;
  return false;
}

// The enlarged plane, reduced, goes back into its parked plane.
void Reduce(Canvas* canvas, int index, const Box& chosen, int factor) {
  PlaneSlot& slot = canvas->planes[index];
  PlaneStore.FreePlane(&slot.accuracyPlane);
  Plane* reduced = nullptr;
  if (slot.plane)
    reduced = ResizePlane(slot.plane, slot.plane->width / factor, slot.plane->height / factor,
                          settings.imageBuffer, 1, 0);
  PlaneStore.FreePlane(&slot.plane);
  const int ox = slot.left / factor, oy = slot.top / factor;
  slot.left = slot.savedLeft, slot.top = slot.savedTop;
  slot.width = slot.savedWidth, slot.height = slot.savedHeight;
  slot.savedLeft = slot.savedTop = slot.savedWidth = slot.savedHeight = 0;
  const std::string path = SmoothZoomFile(canvas, LayerOf(index), PositionOf(index));
  slot.plane = LoadBmp(path);
  platform::RemoveFile(path);
  if (!slot.plane || (slot.plane->bits != 8 && slot.plane->bits != 24)) {
    ZoomError();
  } else if (reduced && !Intersect(SlotBox(slot), chosen).Empty()) {
    PastePlane(slot.plane, reduced, chosen.left - slot.left + ox, chosen.top - slot.top + oy);
  }
  PlaneStore.FreePlane(&reduced);
}

// Undo can't reach across the change, and the accuracy planes went.
void Settle(Canvas* canvas) {
  UndoHistory.ClearUndo(canvas, 1, 0);
  CanvasManager.ClearAccuracy(canvas);
  canvas->doubleAccuracy = 0;
}

}  // namespace

std::string SmoothZoomFile(const Canvas* canvas, int layer, int position) {
  char name[32];
  std::snprintf(name, sizeof name, "%04u%03d%02d.zmt", canvas->serial, layer, position);
  return smoothZoomFolder + name;
}

int EnterSmoothZoom(Canvas* canvas, int left, int top, int factor, int smooth) {
  if (canvas->smoothZoom > 0) return 0;
  if (factor < 1 || canvas->canvasWidth / factor < 1 || canvas->canvasHeight / factor < 1) return 0;
  if (!ParkAll(canvas)) {
    platform::ShowMessageBox(platform::Window::Frame, StringText(kStringSavingFailed), kProductName,
                             platform::MbOk | platform::MbIconError);
    return 0;
  }
  canvas->smoothZoom = factor;
  canvas->smoothZoomLeft = left;
  canvas->smoothZoomTop = top;
  const Box chosen = ChosenBox(canvas);
  const int layers = CanvasManager.LayerCount(canvas);
  for (int layer = 0; layer < layers; ++layer) {
    Progress(layer);
    for (int position = 0; position < kPlanesPerLayer; ++position) {
      PlaneSlot& slot = canvas->planes[SlotIndex(layer, position)];
      if (slot.plane) Enlarge(slot, chosen, factor, smooth);
    }
  }
  Settle(canvas);
  CanvasManager.MarkModified(canvas);
  platform::ClearStatus();
  return 1;
}

int LeaveSmoothZoom(Canvas* canvas) {
  if (canvas->smoothZoom <= 0) return 0;
  const int factor = canvas->smoothZoom;
  const Box chosen = ChosenBox(canvas);
  // Every slot that was enlarged kept its geometry in the saved fields; a
  // failed enlargement left a null plane, but its parked plane comes back.
  for (int layer = 0; layer < kMaxLayers && WasEnlarged(canvas, layer); ++layer) {
    Progress(layer);
    for (int position = 0; position < kPlanesPerLayer; ++position)
      if (canvas->planes[SlotIndex(layer, position)].savedWidth > 0)
        Reduce(canvas, SlotIndex(layer, position), chosen, factor);
  }
  Settle(canvas);
  canvas->smoothZoom = 0;
  if (viewWindows.invalidate) viewWindows.invalidate(canvas);
  platform::ClearStatus();
  return 1;
}

int RefusedInSmoothZoom(const Canvas* canvas, int stringId) {
  if (canvas->smoothZoom <= 0) return 0;
  platform::ShowMessageBox(platform::Window::Frame, StringText(stringId), kProductName,
                           platform::MbOk | platform::MbIconInformation);
  return 1;
}
