#include "layers/dialog_fields.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "document/new_canvas_size.h"

int FieldNumber(const std::string& text, int lo, int hi, int fallback) {
  size_t i = 0;
  while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
  if (i >= text.size() || !std::isdigit(static_cast<unsigned char>(text[i]))) return fallback;
  // Past any bound the value stops growing, so that a long run of digits
  // still clamps instead of wrapping.
  int64_t value = 0;
  for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i)
    value = std::min<int64_t>(value * 10 + (text[i] - '0'), INT32_MAX);
  return static_cast<int>(std::clamp<int64_t>(negative ? -value : value, lo, hi));
}

double FieldAngle(const std::string& text, double fallback) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (end == text.c_str() || !std::isfinite(value)) return fallback;
  return std::clamp(value, -360.0, 360.0);
}

int KeptAspectSide(int typed, int typedOld, int otherOld) {
  if (typedOld <= 0) return std::clamp(otherOld, kMinNewPixels, kMaxNewPixels);
  const int64_t other = (int64_t{typed} * otherOld * 2 + typedOld) / (int64_t{typedOld} * 2);
  return static_cast<int>(std::clamp<int64_t>(other, kMinNewPixels, kMaxNewPixels));
}
