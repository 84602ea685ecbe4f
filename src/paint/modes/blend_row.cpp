#include "paint/modes/blend_row.h"

#include <algorithm>

#include "document/selection_rows.h"
#include "paint/modes/blend_target.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/pen_rows.h"
#include "paint/modes/protection.h"
#include "paint/tip/pen_record.h"

PenRowsObject PenRows;

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

BlendTarget TargetOf(Canvas* canvas, int kind) {
  PlaneSlot& slot = ActiveSlot(canvas);
  const bool image = ActiveIsImage(canvas);
  const bool useTransparency =
      image && canvas->planes[ActiveLayerBase(canvas) + kTransparencyPosition].plane &&
      kind != kBlendColorOnly && !protection.protectTransparency;
  const TransparencyBlend how = !useTransparency        ? TransparencyBlend::None
                                : kind == kBlendReplace ? TransparencyBlend::Replace
                                                        : TransparencyBlend::Over;
  return BlendTarget{canvas,
                     &slot,
                     image,
                     slot.accuracyPlane != nullptr,
                     how,
                     std::min(pen.colorThickness, 255u),
                     std::min(pen.density, 255u)};
}

bool TakesRow(const BlendTarget& target, int y, int x0, int x1) {
  const int count = x1 - x0 + 1;
  return target.slot->plane && count >= 1 && count <= kPenRowPixels &&
         RowOnPlane(*target.slot, y, x0, x1) && RowOnCanvas(target.canvas, y, x0, x1);
}

void ReadTargetRows(const BlendTarget& target, int y0, int n, int x0, int x1,
                    const TargetRows& rows, int stride) {
  ReadImageRows(target.canvas, y0, n, x0, x1, rows.dest, stride);
  if (target.accurate) ReadImageRowsLow(target.canvas, y0, n, x0, x1, rows.destLow, stride);
  if (target.how != TransparencyBlend::None)
    ReadLayerPlaneRows(target.canvas, y0, n, x0, x1, rows.transparency, stride,
                       kTransparencyPosition);
}

void BlendTargetRow(const BlendTarget& target, const uint8_t* source, const uint8_t* tipHigh,
                    const uint8_t* tipLow, const uint8_t* sourceOpacity, const uint8_t* protect,
                    const TargetRows& rows, int count, bool slack) {
  const BlendRows blend{source,       tipHigh,           tipLow, sourceOpacity, protect, rows.dest,
                        rows.destLow, rows.transparency, count,  slack};
  if (target.accurate)
    Blend16(blend, target.how, target.thickness, target.density);
  else
    Blend8(blend, target.how, target.thickness, target.density);
}

void WriteTargetRows(const BlendTarget& target, int y0, int n, int x0, int x1,
                     const TargetRows& rows, int stride) {
  WriteImageRows(target.canvas, y0, n, x0, x1, rows.dest, stride);
  if (target.accurate) WriteImageRowsLow(target.canvas, y0, n, x0, x1, rows.destLow, stride);
  if (target.how != TransparencyBlend::None)
    WriteLayerPlaneRows(target.canvas, y0, n, x0, x1, rows.transparency, stride,
                        kTransparencyPosition);
}

void BlendRow(Canvas* canvas, const uint8_t* sourceRow, const uint8_t* tipHighRow,
              const uint8_t* tipLowRow, const uint8_t* sourceOpacityRow, uint8_t* protectRow,
              int kind, int y, int x0, int x1, int addProtection) {
  const BlendTarget target = TargetOf(canvas, kind);
  if (!TakesRow(target, y, x0, x1)) return;
  const int count = x1 - x0 + 1;
  if (addProtection) {
    if (target.image) ReadProtectionRow(canvas, y, x0, x1, protectRow, ActiveLayerBase(canvas));
    if (protection.maskOutsideSelection) {
      ReadSelectionRow(canvas, y, x0, x1, selectionRow);
      OrRow(protectRow, selectionRow, count);
    }
  }
  const TargetRows rows{PenRows.destRow, PenRows.destLowRow, PenRows.transparencyRow};
  ReadTargetRows(target, y, 1, x0, x1, rows, 0);
  BlendTargetRow(target, sourceRow, tipHighRow, tipLowRow, sourceOpacityRow, protectRow, rows,
                 count, false);
  WriteTargetRows(target, y, 1, x0, x1, rows, 0);
}
