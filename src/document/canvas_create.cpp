// Making and unmaking the planes of a whole canvas.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "document/canvas_content.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/canvas_slots.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"

CanvasManagerObject CanvasManager;
uint32_t canvasSerialCount = 0;

namespace {

constexpr int kStringUntitled = 17002;
constexpr int kStringIllegalPlane = 1300;
constexpr int kCanvasMargin = 8;
constexpr int kInitialGrid = 16;

int RequestedLayers() { return std::clamp(CanvasRequest.layerCount, 0, kMaxLayers); }

// The planes of layer i; 0 after showing the memory box. A layer never has
// fewer than two alpha positions, and never more than its slots hold.
int CreateLayerPlanes(Canvas* canvas, int i) {
  PlaneSlot* slots = &canvas->planes[SlotIndex(i, 0)];
  const int alphaCount = std::min(std::max(2, CanvasRequest.planeCount[i]), kPlanesPerLayer - 1);
  if (MakeLayerPlanes(slots, alphaCount)) return 1;
  ShowMemoryBox(slots);
  return 0;
}

// A plane whose name doesn't say mask or transparency can't be told apart,
// so it is dropped. Its slot stays, empty, which ends the layer's planes.
void DropIllegalPlanes(Canvas* canvas) {
  const int layers = CanvasManager.LayerCount(canvas);
  for (int layer = 0; layer < layers; ++layer) {
    for (int position = 1; position < kPlanesPerLayer; ++position) {
      PlaneSlot& slot = canvas->planes[SlotIndex(layer, position)];
      if (!slot.plane) break;
      if (slot.name[1] == 'M' || slot.name[1] == 'T') continue;
      ShowCanvasBox(
          FormatString(kStringIllegalPlane, FieldText(slot.name, kPlaneNameChars).c_str()),
          platform::MbOk | platform::MbIconInformation);
      FreeSlotPlanes(slot);
      break;
    }
  }
}

// The content of the canvas by the request's mode; New is blank as made.
int FillContent(Canvas* canvas) {
  if (CanvasRequest.mode == kModeNew) return 1;
  CanvasContentFill fill = CanvasContentFillOf(CanvasRequest.mode);
  return fill && fill(canvas);
}

}  // namespace

int CanvasManagerObject::MakeCanvas(Canvas* canvas, WindowHandle documentWnd) {
  InitCanvas(canvas, documentWnd);
  canvas->serial = canvasSerialCount++;
  return CreateCanvasPlanes(canvas);
}

void CanvasManagerObject::InitCanvas(Canvas* canvas, WindowHandle documentWnd) {
  std::memset(canvas, 0, sizeof *canvas);
  std::snprintf(canvas->fileName, kFileNameChars, "%s", StringText(kStringUntitled));
  const int layers = RequestedLayers();
  for (int i = 0; i < layers; ++i)
    for (int position = 0; position < kPlanesPerLayer; ++position)
      InitSlot(canvas->planes[SlotIndex(i, position)], position, CanvasRequest.left[i],
               CanvasRequest.top[i], CanvasRequest.width[i], CanvasRequest.height[i],
               static_cast<uint32_t>(CanvasRequest.bits[i]));
  canvas->documentWnd = documentWnd;
  canvas->canvasWidth = canvas->planes[0].width;
  canvas->canvasHeight = canvas->planes[0].height;
  canvas->marginX = kCanvasMargin;
  canvas->marginY = kCanvasMargin;
  canvas->selRight = canvas->canvasWidth - 1;
  canvas->selBottom = canvas->canvasHeight - 1;
  canvas->gridX = kInitialGrid;
  canvas->gridY = kInitialGrid;
  canvas->gridReverse = 1;
  canvas->gridRed = static_cast<uint32_t>(settings.gridRed);
  canvas->gridGreen = static_cast<uint32_t>(settings.gridGreen);
  canvas->gridBlue = static_cast<uint32_t>(settings.gridBlue);
  canvas->doubleAccuracy = static_cast<uint32_t>(settings.doubleAccuracyDefault);
}

int CanvasManagerObject::CreateCanvasPlanes(Canvas* canvas) {
  platform::WaitCursor wait;
  canvas->dpi = CanvasRequest.dpi;
  const int layers = RequestedLayers();
  int made = layers > 0;
  for (int i = 0; i < layers && made; ++i) made = CreateLayerPlanes(canvas, i);
  if (made) {
    for (int i = 0; i < layers; ++i) NameNewLayer(canvas, i);
    made = FillContent(canvas);
  }
  if (!made) {
    FreeCanvasPlanes(canvas);
    return 0;
  }
  DropIllegalPlanes(canvas);
  ResetAccuracy(canvas, 1);
  return 1;
}

void CanvasManagerObject::FreeCanvasPlanes(Canvas* canvas) {
  const int layers = LayerCount(canvas);
  for (int index = 0; index < layers * kPlanesPerLayer; ++index)
    FreeSlotPlanes(canvas->planes[index]);
  PlaneStore.FreePlane(&canvas->selectionPlane);
}
