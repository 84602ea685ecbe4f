#include "selection/radius_dialog.h"

#include <algorithm>
#include <cstdlib>

#include "selection/selection_windows.h"

RadiusChoice radiusChoice;

int RadiusOfText(const std::string& text) {
  char* end = nullptr;
  const long value = std::strtol(text.c_str(), &end, 10);
  if (end == text.c_str()) return 0;
  return static_cast<int>(std::clamp<long>(value, -1, kMaxRadius));
}

int AskRadius(const char* dialogTemplate) {
  if (!selectionWindows.radiusDialog) return 0;
  RadiusChoice choice = radiusChoice;
  if (!selectionWindows.radiusDialog(dialogTemplate, &choice) || choice.radius < kMinRadius)
    return 0;
  radiusChoice.radius = std::min(choice.radius, kMaxRadius);
  radiusChoice.blurKind = choice.blurKind == kBlurDither ? kBlurDither : kBlurThick;
  return 1;
}
