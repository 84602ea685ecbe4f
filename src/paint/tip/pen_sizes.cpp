#include "paint/tip/pen_sizes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/number_lists.h"

namespace {

constexpr int kStringDeleteSize = 1412;
constexpr int kStringBadSize = 1414;
constexpr const char* kListFullText = "これ以上追加できません";

int32_t& Width(int i) { return penSizes.column[0][i]; }
int32_t& Height(int i) { return penSizes.column[1][i]; }

// A side as typed: digits only, 1..255; 0 otherwise.
int TypedSide(const std::string& text) {
  if (text.empty() || text.size() > 3 ||
      !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
    return 0;
  const int side = std::stoi(text);
  return side <= kLargestPenSize ? side : 0;
}

bool ValidEntry(int index) { return index >= 0 && index < penSizes.Count(); }

// Stable, so equal widths keep their order.
void SortByWidth() {
  int count = penSizes.Count();
  std::vector<std::array<int32_t, 2>> pairs;
  for (int i = 0; i < count; ++i) pairs.push_back({Width(i), Height(i)});
  std::stable_sort(pairs.begin(), pairs.end(), [](auto& a, auto& b) { return a[0] < b[0]; });
  for (int i = 0; i < count; ++i) {
    Width(i) = pairs[i][0];
    Height(i) = pairs[i][1];
  }
}

}  // namespace

std::string PenSizeLabel(int index) {
  if (!ValidEntry(index)) return "";
  char text[32];
  std::snprintf(text, sizeof text, "%d x %d", Width(index), Height(index));
  return text;
}

int PickPenSize(int index) {
  if (!ValidEntry(index)) return 0;
  pen.radiusX = ClampTipRadius((Width(index) - 1) * 0.5);
  pen.radiusY = ClampTipRadius((Height(index) - 1) * 0.5);
  return BuildTip();
}

int AddPenSize(int width, int height) {
  width = std::clamp(width, 1, kLargestPenSize);
  height = std::clamp(height, 1, kLargestPenSize);
  int count = penSizes.Count();
  bool known = false;
  for (int i = 0; i < count; ++i) known = known || (Width(i) == width && Height(i) == height);
  if (!known) {
    if (count > kLastPenSizeIndex) {
      platform::ShowMessageBox(platform::Window::ControlPanel, kListFullText, kProductName,
                               platform::MbOk);
      return 0;
    }
    Width(count) = width;
    Height(count) = height;
  }
  SortByWidth();
  return 1;
}

int AddTypedPenSize(const std::string& width, const std::string& height) {
  const int w = TypedSide(width), h = TypedSide(height);
  if (w && h) return AddPenSize(w, h);
  platform::ShowMessageBox(platform::Window::ControlPanel, StringText(kStringBadSize), kProductName,
                           platform::MbOk | platform::MbIconWarning);
  return 0;
}

int AddCurrentPenSize() {
  return AddPenSize(int(2 * ClampTipRadius(pen.radiusX) + 1),
                    int(2 * ClampTipRadius(pen.radiusY) + 1));
}

int DeletePenSize(int index) {
  if (!ValidEntry(index)) return 0;
  if (platform::ShowMessageBox(platform::Window::ControlPanel, StringText(kStringDeleteSize),
                               kProductName, platform::MbYesNo | platform::MbIconQuestion) !=
      platform::IdYes)
    return 0;
  int count = penSizes.Count();
  for (int i = index; i + 1 < count; ++i) {
    Width(i) = Width(i + 1);
    Height(i) = Height(i + 1);
  }
  Width(count - 1) = Height(count - 1) = -1;
  return 1;
}
