#include "settings/start_rules.h"

#include <algorithm>
#include <cstring>

namespace {

// Buffer kinds offered to the user are 0 "Virtual" and 1 "Physical".
int32_t OfferedBufferKind(int32_t kind) { return std::clamp(kind, 0, 1); }

int32_t NewSide(int32_t side, int32_t fallback) {
  if (side < kMinNewSide) return fallback;
  return std::min(side, kMaxNewSide);
}

}  // namespace

void ApplyStartRules(Settings& record) {
  record.selectionHistorySize =
      std::clamp(record.selectionHistorySize, kMinSelectionHistory, kMaxSelectionHistory);
  record.undoCount = std::min(record.undoCount, kMaxUndoCount);
  record.positionSmoothing = std::max(record.positionSmoothing, 1);
  record.imageBuffer = OfferedBufferKind(record.imageBuffer);
  record.workBuffer = OfferedBufferKind(record.workBuffer);
  record.undoBuffer = 0;
  // A mask and a transparency plane are always made, whatever was stored.
  record.noMaskPlane = 0;
  record.noTransparencyPlane = 0;
  record.forcedOne364208 = 1;
  record.forcedZero364212 = 0;
  record.forcedZero364656 = 0;
  record.penStrength = std::clamp(record.penStrength, kMinPenStrength, kMaxPenStrength);
  record.size40to600 = std::clamp(record.size40to600, kMinSize40to600, kMaxSize40to600);
  record.lastNewWidth = NewSide(record.lastNewWidth, kFallbackNewWidth);
  record.lastNewHeight = NewSide(record.lastNewHeight, kFallbackNewHeight);
  // The name is used as a string: a damaged file must not leave it open.
  record.iconSetName[sizeof record.iconSetName - 1] = '\0';
  std::memset(record.transientPaths, 0, sizeof record.transientPaths);
}
