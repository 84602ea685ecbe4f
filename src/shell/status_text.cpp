#include "shell/status_text.h"

#include <cstdlib>

#include "resources/strings.h"

namespace {

constexpr int kStringProcessing = 15004;
constexpr int kStringReading = 15002;
constexpr int kStringSaving = 15003;
constexpr int kStringCorners = 15007;

// lParam packs y in the high and x in the low 16 bits, each signed.
int XOf(intptr_t lParam) { return static_cast<int16_t>(lParam & 0xFFFF); }
int YOf(intptr_t lParam) { return static_cast<int16_t>((lParam >> 16) & 0xFFFF); }

int Show(StatusBarState& state, std::string text) {
  if (text == state.shown) return 0;
  state.shown = std::move(text);
  return 1;
}

// Both corners are inclusive: the size counts the pixels between them, and
// the centre is their truncated mean.
std::string CornersText(int x0, int y0, int x1, int y1) {
  return FormatString(kStringCorners, x0, y0, x1, y1, std::abs(x1 - x0) + 1, std::abs(y1 - y0) + 1,
                      (x0 + x1) / 2, (y0 + y1) / 2);
}

const char* TextOf(intptr_t lParam) {
  const char* text = reinterpret_cast<const char*>(lParam);
  return text ? text : "";
}

}  // namespace

int ApplyStatusMessage(StatusBarState& state, intptr_t wParam, intptr_t lParam) {
  const int percent = static_cast<int>(lParam);
  switch (wParam) {
    case platform::kStatusClear:
      return Show(state, {});
    case platform::kStatusProgress:
    case platform::kStatusProgressAlt:
      return Show(state, FormatString(kStringProcessing, percent));
    case platform::kStatusReading:
      return Show(state, FormatString(kStringReading, percent));
    case platform::kStatusSaving:
      return Show(state, FormatString(kStringSaving, percent));
    case platform::kStatusFirstCorner:
      state.heldX = XOf(lParam);
      state.heldY = YOf(lParam);
      return 0;
    case platform::kStatusSecondCorner:
      return Show(state, CornersText(state.heldX, state.heldY, XOf(lParam), YOf(lParam)));
    case platform::kStatusText:
      return Show(state, TextOf(lParam));
    case platform::kStatusRestingText:
      state.resting = TextOf(lParam);
      return Show(state, state.resting);
    default: return 0;
  }
}
