#include "paint/blend_row.h"

#include <algorithm>

#include "paint/blend_kernels.h"
#include "paint/pen_modes.h"
#include "paint/pen_record.h"
#include "paint/pen_rows.h"
#include "paint/protection.h"

namespace {

uint8_t selectionRow[kPenRowPixels];

bool RowOnPlane(const PlaneSlot& slot, int y, int x0, int x1) {
  return x0 <= slot.left + slot.width - 1 && x1 >= slot.left && y >= slot.top &&
         y <= slot.top + slot.height - 1;
}

bool RowOnCanvas(const Canvas* canvas, int y, int x0, int x1) {
  return x0 <= canvas->canvasWidth - 1 && x1 >= 0 && y >= 0 && y <= canvas->canvasHeight - 1;
}

}  // namespace

void BlendRow(Canvas* canvas, const uint8_t* sourceRow, const uint8_t* tipHighRow,
              const uint8_t* tipLowRow, const uint8_t* sourceOpacityRow, uint8_t* protectRow,
              int kind, int y, int x0, int x1, int addProtection) {
  PlaneSlot& slot = ActiveSlot(canvas);
  const int count = x1 - x0 + 1;
  if (!slot.plane || count < 1 || count > kPenRowPixels) return;
  if (!RowOnPlane(slot, y, x0, x1) || !RowOnCanvas(canvas, y, x0, x1)) return;
  const bool image = ActiveIsImage(canvas);
  if (addProtection) {
    if (image) ReadProtectionRow(canvas, y, x0, x1, protectRow, ActiveLayerBase(canvas));
    if (maskOutsideSelection) {
      ReadSelectionBytes(canvas, y, x0, x1, selectionRow);
      OrRow(protectRow, selectionRow, count);
    }
  }

  const bool useTransparency =
      image && canvas->planes[ActiveLayerBase(canvas) + kTransparencyPosition].plane &&
      kind != kBlendColorOnly && !protectTransparency;
  TransparencyBlend how = !useTransparency        ? TransparencyBlend::None
                          : kind == kBlendReplace ? TransparencyBlend::Replace
                                                  : TransparencyBlend::Over;
  const bool accurate = slot.accuracyPlane != nullptr;
  BlendRows rows{sourceRow,  tipHighRow,      tipLowRow,          sourceOpacityRow,
                 protectRow, PenRows.destRow, PenRows.destLowRow, PenRows.transparencyRow,
                 count};
  ReadImageRow(canvas, y, x0, x1, PenRows.destRow);
  if (accurate) ReadImageRowLow(canvas, y, x0, x1, PenRows.destLowRow);
  if (useTransparency)
    ReadLayerPlaneRow(canvas, y, x0, x1, PenRows.transparencyRow, kTransparencyPosition);

  const unsigned thickness = std::min(pen.colorThickness, 255u);
  const unsigned density = std::min(pen.density, 255u);
  if (accurate)
    Blend16(rows, how, thickness, density);
  else
    Blend8(rows, how, thickness, density);

  WriteImageRow(canvas, y, x0, x1, PenRows.destRow);
  if (accurate) WriteImageRowLow(canvas, y, x0, x1, PenRows.destLowRow);
  if (useTransparency)
    WriteLayerPlaneRow(canvas, y, x0, x1, PenRows.transparencyRow, kTransparencyPosition);
}
