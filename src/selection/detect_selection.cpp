#include "selection/detect_selection.h"

#include <algorithm>
#include <cstring>

#include "base/command_ids.h"
#include "display/compose.h"
#include "display/grid.h"
#include "display/view_windows.h"
#include "document/alpha_plane_name.h"
#include "document/canvas_manager.h"
#include "document/canvas_rows.h"
#include "document/selection_rows.h"
#include "document/undo_history.h"
#include "layers/block_compose.h"
#include "pixel/hsv.h"
#include "resources/strings.h"
#include "selection/draft_engine.h"
#include "selection/raster_outline.h"
#include "selection/pick_rows.h"
#include "selection/selection_windows.h"
#include "store/dib.h"

uint8_t pickTable[kPickRows][256];
int32_t pickTableFresh = 1;
int32_t pickIsHsv = 0;
int32_t pickCondition = 0;
int32_t pickTarget = 0;
int32_t pickDisplayed = 1;
Canvas* pickCanvas = nullptr;
WindowHandle pickDialog = nullptr;
int32_t pickOldPlane = 0;

namespace {

constexpr int kStringSelection = 5006;
constexpr int kStringMask = 5004;
constexpr int kHueOfSaturationBar = 64;
constexpr int kProgressEvery = 20;
// Composed rows are taken this many at a time.
constexpr int kComposeBand = 16;

uint32_t ColourRef(int r, int g, int b) {
  return uint32_t(r) | uint32_t(g) << 8 | uint32_t(b) << 16;
}

void RedrawBars() {
  if (selectionWindows.redrawPickBar) selectionWindows.redrawPickBar(-1, -1);
}

void Repaint(Canvas* canvas) {
  SelectionRasterChanged(canvas);
  if (viewWindows.invalidate) viewWindows.invalidate(canvas);
}

void Forget() {
  pickDialog = nullptr;
  pickCanvas = nullptr;
  if (selectionWindows.closeDetectDialog) selectionWindows.closeDetectDialog();
}

// The composed pixel at (x, y) with the layer's image plane active.
bool SamplePixel(Canvas* canvas, int x, int y, uint8_t* bgr) {
  const int saved = canvas->activePlane;
  canvas->activePlane = ActiveLayerBase(canvas);
  DibTile* tile = Compose(canvas, x, y, x, y, 0, 0);
  canvas->activePlane = saved;
  if (!tile) return false;
  ReadTileRow(tile, 0, 0, 0, bgr);
  FreeTile(&tile);
  return true;
}

}  // namespace

uint32_t PickScaleColour(int bar, int i, int hsv) {
  if (!hsv) return ColourRef(bar == 0 ? i : 0, bar == 1 ? i : 0, bar == 2 ? i : 0);
  int r = i, g = i, b = i;
  if (bar == 0) HsvToRgb(i, 255, 255, &r, &g, &b, 1);
  if (bar == 1) HsvToRgb(kHueOfSaturationBar, i, 255, &r, &g, &b, 1);
  return ColourRef(r, g, b);
}

void OpenDetectSelection(Canvas* canvas) {
  if (pickDialog || !selectionWindows.openDetectDialog) return;
  if (pickTableFresh) {
    std::memset(pickTable, 0, sizeof pickTable);
    pickTableFresh = 0;
  }
  pickDisplayed = 1;
  pickTarget = 0;
  pickCanvas = canvas;
  pickOldPlane = canvas->activePlane;
  CanvasManager.SelectPlane(canvas, ActiveLayerBase(canvas));
  pickDialog = selectionWindows.openDetectDialog(canvas);
  if (!pickDialog) CloseDetectSelection();
}

std::vector<PickTargetItem> PickTargets(Canvas* canvas) {
  std::vector<PickTargetItem> items = {{StringText(kStringSelection), 0},
                                       {StringText(kStringMask), kMaskPosition}};
  const int base = ActiveLayerBase(canvas);
  for (int position = kTransparencyPosition; position < kPlanesPerLayer; ++position)
    if (canvas->planes[base + position].plane)
      items.push_back({AlphaPlaneName(canvas, base + position), position});
  return items;
}

void PickColumn(int bar, int x, int pick) {
  if (bar < 0 || bar >= kPickBars) return;
  x = std::clamp(x, 0, 255);
  pickTable[bar][x] = pick ? 1 : 0;
  if (selectionWindows.redrawPickBar) selectionWindows.redrawPickBar(bar, x);
}

void SetPickChannels(int hsv) {
  pickIsHsv = hsv ? 1 : 0;
  RedrawBars();
}

void SetPickTarget(int target) {
  if (!pickCanvas || target < 0 || target >= kPlanesPerLayer) return;
  pickTarget = target;
  CanvasManager.SelectPlane(pickCanvas, ActiveLayerBase(pickCanvas) + target);
  Repaint(pickCanvas);
}

void InitializePicks() {
  std::memset(pickTable, 0, sizeof pickTable);
  RedrawBars();
}

void ReversePicks() {
  for (auto& row : pickTable)
    for (uint8_t& entry : row) entry = entry ? 0 : 1;
  RedrawBars();
}

void TogglePickDisplayed() { pickDisplayed = pickDisplayed ? 0 : 1; }

int ExecutePick() {
  Canvas* canvas = pickCanvas;
  if (!canvas || !canvas->planes[ActiveLayerBase(canvas)].plane) return 0;
  const int saved = canvas->activePlane;
  canvas->activePlane = ActiveLayerBase(canvas);
  const PlaneSlot& image = canvas->planes[canvas->activePlane];
  const int lx = image.left, ly = image.top, lw = image.width, lh = image.height;
  if (pickTarget == 0) {
    EnsurePlane(canvas, 1);
    canvas->selectionKind = cmd::kSeedFill;
    SetSelectionBox(canvas, WholeCanvas(canvas));
  }
  const uint8_t hit = pickTarget == 0 ? 0 : 255, miss = pickTarget == 0 ? 255 : 0;
  PickRows pick(hit, miss);
  std::vector<uint8_t> pixels(size_t(std::max(lw, 0)) * 3), out(size_t(std::max(lw, 0)));
  DibTile* band = nullptr;
  int bandTop = 0;
  for (int y = 0; y < lh; ++y) {
    if (y % kProgressEvery == 0) platform::ShowProgress(100 * y / lh);
    const uint8_t* row = pixels.data();
    if (pickDisplayed) {
      if (!band || y - bandTop >= kComposeBand) {
        FreeTile(&band);
        bandTop = y;
        const int last = std::min(y + kComposeBand, lh) - 1;
        band = Compose(canvas, lx, ly + y, lx + lw - 1, ly + last, 0, 0);
      }
      if (band) ReadTileRow(band, y - bandTop, 0, lw - 1, pixels.data());
    } else {
      // The layer's own row is read where it is stored.
      const RowAccess stored = PlaneStore.AccessRow(image.plane, y, 0, lw - 1, 0);
      if (stored.bytes) row = stored.bytes;
    }
    pick.Row(row, lw, out.data());
    if (pickTarget == 0)
      WriteSelectionRow(canvas, ly + y, lx, lx + lw - 1, out.data());
    else
      WriteLayerPlaneRow(canvas, ly + y, lx, lx + lw - 1, out.data(), pickTarget);
  }
  FreeTile(&band);
  canvas->activePlane = saved;
  platform::ClearStatus();
  Repaint(canvas);
  return 1;
}

void ConfirmDetectSelection() {
  Canvas* canvas = pickCanvas;
  if (!canvas) return;
  if (pickTarget == 0) historyHooks.Run(canvas);
  UndoHistory.RecordUndo(canvas, -1, pickTarget != 0, -1, -1, -1, -1, 0);
  CloseDetectSelection();
}

void CloseDetectSelection() {
  Canvas* canvas = pickCanvas;
  if (canvas && canvas->activePlane != pickOldPlane)
    CanvasManager.SelectPlane(canvas, pickOldPlane);
  if (canvas) Repaint(canvas);
  Forget();
}

void DetectSelectionCanvasGoing(Canvas* canvas) {
  if (canvas == pickCanvas) Forget();
}

int SampleForDetectSelection(Canvas* canvas, int rightButton) {
  if (!pickDialog || !viewWindows.buttonHeld) return 0;
  if (selectionWindows.shrinkDetectDialog) selectionWindows.shrinkDetectDialog(true);
  if (selectionWindows.showCursor) selectionWindows.showCursor("cross");
  const PointerButton button = rightButton ? PointerButton::Right : PointerButton::Left;
  do {
    CanvasPoint at;
    if (!PointerOnCanvas(canvas, &at, 0, 0)) break;
    uint8_t bgr[3];
    if (!SamplePixel(canvas, std::clamp(at.x, 0, canvas->canvasWidth - 1),
                     std::clamp(at.y, 0, canvas->canvasHeight - 1), bgr))
      continue;
    int c[3];
    PickChannels(bgr, pickIsHsv != 0, c);
    for (int bar = 0; bar < kPickBars; ++bar) PickColumn(bar, c[bar], !rightButton);
  } while (viewWindows.buttonHeld(button));
  if (selectionWindows.showCursor) selectionWindows.showCursor("");
  if (selectionWindows.shrinkDetectDialog) selectionWindows.shrinkDetectDialog(false);
  return 1;
}
