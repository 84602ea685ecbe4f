// The Open and Save dialogs of the selection's own files.
#include <windows.h>
#include <commdlg.h>

#include <string>
#include <vector>

#include "platform/win32/win32_platform.h"
#include "selection/selection_windows.h"
#include "selection/win/selection_files_win.h"

namespace {

constexpr DWORD kPathChars = 1024;

// The table's "text/pattern/" as the system wants it: each part ends with
// a nul, and the list with one more.
std::wstring FilterBlock(const std::string& filter) {
  std::wstring block = platform::Widen(filter);
  for (wchar_t& c : block)
    if (c == L'/') c = L'\0';
  return block + L'\0';
}

bool FileDialog(bool save, const std::string& filter, const std::string& extension,
                std::string* path) {
  const std::wstring filters = FilterBlock(filter), defaultExtension = platform::Widen(extension);
  std::vector<wchar_t> chosen(kPathChars, L'\0');
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = platform::BoundWindow(platform::Window::Frame);
  dialog.lpstrFilter = filters.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = chosen.data();
  dialog.nMaxFile = kPathChars;
  dialog.lpstrDefExt = defaultExtension.c_str();
  dialog.Flags = OFN_HIDEREADONLY | OFN_EXPLORER | (save ? OFN_PATHMUSTEXIST : OFN_FILEMUSTEXIST);
  if (!(save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog))) return false;
  *path = platform::Narrow(chosen.data());
  return true;
}

}  // namespace

void InstallSelectionFileDialog() { selectionWindows.fileDialog = FileDialog; }
