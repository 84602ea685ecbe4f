#include "layers/win/dialog_controls.h"

#include "layers/dialog_fields.h"
#include "platform/win32/win32_platform.h"

std::string ControlText(HWND dialog, int control) {
  HWND field = GetDlgItem(dialog, control);
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(field)) + 1, L'\0');
  text.resize(
      static_cast<size_t>(GetWindowTextW(field, text.data(), static_cast<int>(text.size()))));
  return platform::Narrow(text);
}

void SetControlText(HWND dialog, int control, const std::string& text) {
  SetDlgItemTextW(dialog, control, platform::Widen(text).c_str());
}

void SetControlNumber(HWND dialog, int control, int value) {
  SetControlText(dialog, control, std::to_string(value));
}

int ControlNumber(HWND dialog, int control, int lo, int hi, int fallback) {
  return FieldNumber(ControlText(dialog, control), lo, hi, fallback);
}

bool IsChecked(HWND dialog, int control) {
  return IsDlgButtonChecked(dialog, control) == BST_CHECKED;
}

void SetChecked(HWND dialog, int control, bool checked) {
  CheckDlgButton(dialog, control, checked ? BST_CHECKED : BST_UNCHECKED);
}
