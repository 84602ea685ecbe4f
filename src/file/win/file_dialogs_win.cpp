#include "file/win/file_dialogs_win.h"

#include <windows.h>
#include <commdlg.h>

#include <string>
#include <vector>

#include "file/file_filters.h"
#include "file/file_windows.h"
#include "file/save_canvas.h"
#include "file/win/file_dialog_ids.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "settings/settings.h"

namespace {

constexpr DWORD kPathChars = 1024;

// The dialogs remember where the user last was, and which filter; Open
// starts with all the pictures it can read, Save with the native format.
struct LastPlace {
  std::wstring folder;
  DWORD filterIndex = 0;  // 0: not chosen yet
};
LastPlace lastOpen, lastSave;

// "text", "pattern", ... as the system wants them: each ends with a nul,
// and the list with one more.
std::wstring FilterBlock(const std::vector<FileFilter>& filters) {
  std::wstring block;
  for (const FileFilter& filter : filters) {
    block += platform::Widen(filter.text) + L'\0';
    block += platform::Widen(filter.pattern) + L'\0';
  }
  return block + L'\0';
}

void Remember(LastPlace* place, const wchar_t* path, DWORD filterIndex) {
  const std::wstring chosen = path;
  place->folder = chosen.substr(0, chosen.find_last_of(L"\\/") + 1);
  place->filterIndex = filterIndex;
}

OPENFILENAMEW Dialog(const std::wstring& filters, wchar_t* path, const LastPlace& place) {
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = platform::BoundWindow(platform::Window::Frame);
  dialog.lpstrFilter = filters.c_str();
  dialog.nFilterIndex = place.filterIndex;
  dialog.lpstrFile = path;
  dialog.nMaxFile = kPathChars;
  dialog.lpstrInitialDir = place.folder.empty() ? nullptr : place.folder.c_str();
  return dialog;
}

bool OpenDialog(std::string* path) {
  const std::vector<FileFilter> list = OpenFilters();
  const std::wstring filters = FilterBlock(list);
  std::vector<wchar_t> chosen(kPathChars, L'\0');
  OPENFILENAMEW dialog = Dialog(filters, chosen.data(), lastOpen);
  if (dialog.nFilterIndex == 0 || dialog.nFilterIndex > list.size()) dialog.nFilterIndex = DWORD(list.size());
  dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_EXPLORER;
  if (!GetOpenFileNameW(&dialog)) return false;
  Remember(&lastOpen, chosen.data(), dialog.nFilterIndex);
  *path = platform::Narrow(chosen.data());
  return true;
}

// The native format keeps everything: a first save offers it.
DWORD NativeFilter(const std::vector<FileFilter>& filters) {
  for (size_t i = 0; i < filters.size(); ++i)
    if (filters[i].extension == "tsl") return DWORD(i + 1);
  return 1;
}

bool SaveDialog(const std::string& name, std::string* chosenOut, std::string* extension) {
  const std::vector<FileFilter> filters = SaveFilters();
  if (filters.empty()) return false;
  const std::wstring block = FilterBlock(filters);
  std::vector<wchar_t> chosen(kPathChars, L'\0');
  const std::wstring seed = platform::Widen(SaveDialogSeed(name));
  seed.copy(chosen.data(), kPathChars - 1);
  OPENFILENAMEW dialog = Dialog(block, chosen.data(), lastSave);
  if (dialog.nFilterIndex == 0 || dialog.nFilterIndex > filters.size()) dialog.nFilterIndex = NativeFilter(filters);
  dialog.Flags = OFN_HIDEREADONLY | OFN_EXPLORER | OFN_PATHMUSTEXIST;
  if (!GetSaveFileNameW(&dialog)) return false;
  Remember(&lastSave, chosen.data(), dialog.nFilterIndex);
  *chosenOut = platform::Narrow(chosen.data());
  *extension = filters[dialog.nFilterIndex - 1].extension;
  return true;
}

bool ConfirmFlatFormat() {
  win32::Dialog dialog;
  dialog.accept = [](HWND window) {
    if (IsDlgButtonChecked(window, IDC_SAVE_NO_WARNING) == BST_CHECKED) settings.noWarnNotTsl = 1;
    return true;
  };
  return win32::RunDialog(L"tsl_save", platform::BoundWindow(platform::Window::Frame), dialog);
}

}  // namespace

void InstallFileWindows() {
  fileWindows.openDialog = OpenDialog;
  fileWindows.saveDialog = SaveDialog;
  fileWindows.confirmFlatFormat = ConfirmFlatFormat;
}
