#include "selection/raster_commands.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

#include "base/command_ids.h"
#include "base/command_registry.h"
#include "display/view_windows.h"
#include "document/canvas_content.h"
#include "document/canvas_request.h"
#include "document/canvas_rows.h"
#include "document/selection_rows.h"
#include "platform/platform.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/radius_dialog.h"
#include "selection/raster_filters.h"
#include "selection/raster_outline.h"
#include "selection/shape_tool.h"
#include "selection/trim_selection.h"

namespace {

void Repaint(Canvas* canvas) {
  SelectionRasterChanged(canvas);
  if (viewWindows.invalidate) viewWindows.invalidate(canvas);
}

// The raster of a canvas copied into memory, written back when the work
// is done. Empty (bytes null) when there is no 8-bit raster or no memory.
struct RasterCopy {
  int width = 0, height = 0;
  std::unique_ptr<uint8_t[]> bytes;

  uint8_t* Row(int y) { return bytes.get() + static_cast<size_t>(y) * static_cast<size_t>(width); }
  size_t Size() const { return static_cast<size_t>(width) * static_cast<size_t>(height); }
};

std::unique_ptr<uint8_t[]> NewBytes(size_t size) {
  return std::unique_ptr<uint8_t[]>(new (std::nothrow) uint8_t[size]);
}

RasterCopy ReadRaster(Canvas* canvas) {
  RasterCopy copy;
  const Plane* plane = canvas->selectionPlane;
  if (!plane || plane->bits != 8 || plane->width < 1 || plane->height < 1) return copy;
  copy.width = plane->width;
  copy.height = plane->height;
  copy.bytes = NewBytes(copy.Size());
  for (int y = 0; copy.bytes && y < copy.height; ++y)
    ReadSelectionRow(canvas, y, 0, copy.width - 1, copy.Row(y));
  return copy;
}

void WriteRaster(Canvas* canvas, RasterCopy& copy) {
  for (int y = 0; y < copy.height; ++y)
    WriteSelectionRow(canvas, y, 0, copy.width - 1, copy.Row(y));
}

// A shape no longer: the tool's outline goes before the kind changes.
void BecomeShapeless(Canvas* canvas) {
  EraseOutline(canvas);
  canvas->selectionKind = kShapelessSelection;
}

// The box grown by n on every side (shrunk for n below 0), floored at 0
// but not held to the canvas.
void GrowBox(Canvas* canvas, int n) {
  canvas->selLeft = std::max(canvas->selLeft - n, 0);
  canvas->selTop = std::max(canvas->selTop - n, 0);
  canvas->selRight = std::max(canvas->selRight + n, 0);
  canvas->selBottom = std::max(canvas->selBottom + n, 0);
}

// N passes of the 3 x 3 extreme. They run as one sweep; the status bar
// shows each pass's percentage, 100 * i / max(N - 1, 1), as the sweep
// reaches its share of the rows.
void MinMaxPasses(Canvas* canvas, int radius, bool takeMax) {
  RasterCopy copy = ReadRaster(canvas);
  std::unique_ptr<uint8_t[]> other = copy.bytes ? NewBytes(copy.Size()) : nullptr;
  if (!other) return;
  int pass = 0;
  const auto reach = [&](int y) {
    for (; pass < radius && int64_t{pass} * copy.height <= int64_t{y} * radius; ++pass)
      platform::ShowProgress(100 * pass / std::max(radius - 1, 1));
  };
  MinMaxSquare(copy.bytes.get(), other.get(), copy.width, copy.height, radius, takeMax, reach);
  reach(copy.height);  // a raster of fewer rows than passes
  std::swap(copy.bytes, other);
  WriteRaster(canvas, copy);
}

void SquareMeanOfRaster(Canvas* canvas, int radius) {
  RasterCopy copy = ReadRaster(canvas);
  std::unique_ptr<uint8_t[]> other = copy.bytes ? NewBytes(copy.Size()) : nullptr;
  if (!other) return;
  // The status bar hears of each new percentage only, not of every row.
  const int last = std::max(copy.height - 1, 1);
  int shown = -1;
  SquareMean(copy.bytes.get(), other.get(), copy.width, copy.height, radius, [&](int y) {
    if (const int percent = 100 * y / last; percent != shown) platform::ShowProgress(shown = percent);
  });
  std::swap(copy.bytes, other);
  WriteRaster(canvas, copy);
}

void DitherRaster(Canvas* canvas, int radius) {
  RasterCopy copy = ReadRaster(canvas);
  if (!copy.bytes) return;
  DitherRandom random;
  for (int i = 0; i < radius; ++i) {
    platform::ShowProgress(100 * i / std::max(radius - 1, 1));
    DitherPass(copy.bytes.get(), copy.width, copy.height, random);
  }
  WriteRaster(canvas, copy);
}

}  // namespace

void SelectAll(Canvas* canvas) {
  Deselect(canvas);
  canvas->selectionKind = cmd::kSelectionBox;
  SetSelectionBox(canvas, WholeCanvas(canvas));
  Repaint(canvas);
}

void SelectByLayerSize(Canvas* canvas) {
  Deselect(canvas);
  const PlaneSlot& layer = canvas->planes[ActiveLayerBase(canvas)];
  canvas->selectionKind = cmd::kSelectionBox;
  SetSelectionBox(canvas, Rect::OfSize(layer.left, layer.top, layer.width, layer.height));
  Repaint(canvas);
}

void InvertSelection(Canvas* canvas) {
  EnsurePlane(canvas, 0);
  if (RasterCopy copy = ReadRaster(canvas); copy.bytes) {
    uint8_t* bytes = copy.bytes.get();
    for (size_t i = 0; i < copy.Size(); ++i) bytes[i] = static_cast<uint8_t>(255 - bytes[i]);
    WriteRaster(canvas, copy);
  }
  BecomeShapeless(canvas);
  canvas->draftPointCount = 0;
  SetSelectionBox(canvas, SelectionBounds(canvas));
  Repaint(canvas);
}

namespace {

// Fatten's box grows by N + 1 on every side; Slim's shrinks by N - 1.
void ExtremeCommand(Canvas* canvas, int radius, bool takeMax) {
  if (!canvas->selectionPlane) return;
  MinMaxPasses(canvas, radius, takeMax);
  BecomeShapeless(canvas);
  canvas->draftPoints[0][0] = -1.0f;
  GrowBox(canvas, takeMax ? 1 - radius : radius + 1);
  Repaint(canvas);
}

}  // namespace

void FattenSelection(Canvas* canvas, int radius) { ExtremeCommand(canvas, radius, false); }

void SlimSelection(Canvas* canvas, int radius) { ExtremeCommand(canvas, radius, true); }

void BlurOutside(Canvas* canvas, int radius, int kind) {
  if (kind == kBlurDither)
    DitherRaster(canvas, radius);
  else
    SquareMeanOfRaster(canvas, radius);
  BecomeShapeless(canvas);
  canvas->draftPointCount = 0;
  GrowBox(canvas, radius + 1);
  Repaint(canvas);
}

void BlurInside(Canvas* canvas) {
  RasterCopy copy = ReadRaster(canvas);
  if (std::unique_ptr<uint8_t[]> other = copy.bytes ? NewBytes(copy.Size()) : nullptr) {
    MinMaxSquare(copy.bytes.get(), other.get(), copy.width, copy.height, 1, true, [](int) {});
    Mean3x3(other.get(), copy.bytes.get(), copy.width, copy.height);
    WriteRaster(canvas, copy);
  }
  BecomeShapeless(canvas);
  canvas->draftPointCount = 0;
  GrowBox(canvas, -1);
  Repaint(canvas);
}

void InstallSelectionRaster() {
  // A raster without a shape has no pegs and takes no press: its outline
  // is all the Draft engine draws of it.
  ShapeTool shapeless;
  shapeless.outline = ToggleRasterOutline;
  RegisterShapeTool(kShapelessSelection, shapeless);
  SetCanvasContentFill(kModeTrimSelection, FillTrimmedCanvas);
  RegisterCanvasCommand(cmd::kSelectAll, [](Canvas* canvas, intptr_t) { SelectAll(canvas); });
  RegisterCanvasCommand(cmd::kSelectByLayerSize,
                        [](Canvas* canvas, intptr_t) { SelectByLayerSize(canvas); });
  RegisterCanvasCommand(cmd::kInvertSelection,
                        [](Canvas* canvas, intptr_t) { InvertSelection(canvas); });
  RegisterCanvasCommand(cmd::kFattenSelection, [](Canvas* canvas, intptr_t) {
    if (AskRadius(kFattenDialog)) FattenSelection(canvas, radiusChoice.radius);
  });
  RegisterCanvasCommand(cmd::kSlimSelection, [](Canvas* canvas, intptr_t) {
    if (AskRadius(kSlimDialog)) SlimSelection(canvas, radiusChoice.radius);
  });
  RegisterCanvasCommand(cmd::kBlurOutside, [](Canvas* canvas, intptr_t) {
    if (AskRadius(kBlurOutsideDialog))
      BlurOutside(canvas, radiusChoice.radius, radiusChoice.blurKind);
  });
  RegisterCanvasCommand(cmd::kBlurInside, [](Canvas* canvas, intptr_t) { BlurInside(canvas); });
}

void ResetSelectionRaster() {
  radiusChoice = {};
  ResetRasterOutline();
}
