#include "paint/control/size_menu.h"

#include <cstdio>

#include "paint/tip/pen_record.h"
#include "paint/tip/pen_sizes.h"
#include "resources/strings.h"
#include "settings/number_lists.h"

namespace {

constexpr int kStringAdd = 26100;
constexpr int kStringEdit = 26101;

bool DotTipInUse() { return tipState.dotTipActive && tipState.dotTip; }

}  // namespace

int CurrentPenWidth() {
  return DotTipInUse() ? tipState.dotTip->width : int(2 * ClampTipRadius(pen.radiusX) + 1);
}

int CurrentPenHeight() {
  return DotTipInUse() ? tipState.dotTip->height : int(2 * ClampTipRadius(pen.radiusY) + 1);
}

std::string CurrentPenSizeLabel() {
  char text[32];
  std::snprintf(text, sizeof text, "%d x %d", CurrentPenWidth(), CurrentPenHeight());
  return text;
}

std::vector<SizeMenuItem> SizeMenuItems() {
  std::vector<SizeMenuItem> items;
  const int width = CurrentPenWidth(), height = CurrentPenHeight();
  for (int i = 0; i < penSizes.Count(); ++i)
    items.push_back({i, PenSizeLabel(i),
                     penSizes.column[0][i] == width && penSizes.column[1][i] == height});
  items.push_back({-1, "", false});
  items.push_back({kSizeMenuAdd, StringText(kStringAdd), false});
  items.push_back({kSizeMenuEdit, StringText(kStringEdit), false});
  return items;
}

SizeMenuResult ChooseSizeMenuItem(int id) {
  if (id == kSizeMenuAdd) return AddCurrentPenSize() ? SizeMenuResult::Added : SizeMenuResult::None;
  if (id == kSizeMenuEdit) return SizeMenuResult::Edit;
  return PickPenSize(id) ? SizeMenuResult::Picked : SizeMenuResult::None;
}
