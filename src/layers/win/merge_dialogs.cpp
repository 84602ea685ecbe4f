// tsl_layermix and tsl_layermix2: what a merge makes and how it merges
// transparency. The third transparency choice has a button that is never
// shown: a caller that asks for it gets it back, and the user can't pick it.
#include <windows.h>

#include <algorithm>

#include "layers/win/dialog_controls.h"
#include "layers/win/layer_dialog_ids.h"
#include "layers/win/layer_dialogs_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

// The checked button among `count` from `first`; `fallback` when none is.
int CheckedOf(HWND dialog, int first, int count, int fallback) {
  for (int i = 0; i < count; ++i)
    if (IsChecked(dialog, first + i)) return i;
  return fallback;
}

constexpr int kKinds = 3;
constexpr int kTransparencyChoices = 3;

bool RunMerge(const wchar_t* name, MergeKind* kind, int* option) {
  win32::Dialog dialog;
  dialog.init = [&](HWND window) {
    if (kind) SetChecked(window, IDC_MIX_VISIBLE + static_cast<int>(*kind), true);
    SetChecked(window, IDC_MIX_TO_OPACITY + *option, true);
  };
  dialog.accept = [&](HWND window) {
    if (kind) *kind = static_cast<MergeKind>(CheckedOf(window, IDC_MIX_VISIBLE, kKinds, 0));
    *option = CheckedOf(window, IDC_MIX_TO_OPACITY, kTransparencyChoices, 0);
    return true;
  };
  return win32::RunDialog(name, platform::BoundWindow(platform::Window::Frame), dialog);
}

}  // namespace

bool RunMergeLayersDialog(MergeChoice* choice) {
  choice->mergeOption = std::clamp(choice->mergeOption, 0, kTransparencyChoices - 1);
  return RunMerge(L"tsl_layermix", &choice->kind, &choice->mergeOption);
}

bool RunMergeDownDialog(int* mergeTransparency) {
  *mergeTransparency = *mergeTransparency ? 1 : 0;
  return RunMerge(L"tsl_layermix2", nullptr, mergeTransparency);
}
