#include "file/win/file_dialogs_win.h"

#include <windows.h>
#include <commdlg.h>

#include <algorithm>
#include <string>
#include <vector>

#include "file/file_description.h"
#include "file/file_filters.h"
#include "file/read_image.h"
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

// The preview of the Open dialog, as long as it stands.
struct HookPreview {
  Plane* picture = nullptr;
  std::string path;
};
HookPreview preview;

void DropPreview(HWND hook) {
  PlaneStore.FreePlane(&preview.picture);
  InvalidateRect(GetDlgItem(hook, IDC_HOOK_PREVIEW), nullptr, TRUE);
}

void ShowSelection(HWND hook) {
  wchar_t path[kPathChars] = {};
  SendMessageW(GetParent(hook), CDM_GETFILEPATH, kPathChars, reinterpret_cast<LPARAM>(path));
  preview.path = platform::Narrow(path);
  DropPreview(hook);
  const FileDescription described = DescribeFile(preview.path);
  SetDlgItemTextW(hook, IDC_HOOK_SIZE, platform::Widen(described.size).c_str());
  SetDlgItemTextW(hook, IDC_HOOK_LAYERS, platform::Widen(described.layers).c_str());
  EnableWindow(GetDlgItem(hook, IDC_HOOK_PREVIEW_BUTTON), described.canPreview);
}

void MakePreview(HWND hook) {
  DropPreview(hook);
  preview.picture = FastPreview(preview.path);
  if (!preview.picture) preview.picture = LoadPreview(preview.path);
}

// The picture fitted into the box, its proportions kept.
void DrawPreview(const DRAWITEMSTRUCT& item) {
  FillRect(item.hDC, &item.rcItem, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  const Plane* p = preview.picture;
  if (!p) return;
  const int boxW = item.rcItem.right - item.rcItem.left, boxH = item.rcItem.bottom - item.rcItem.top;
  const double scale = std::min(double(boxW) / p->width, double(boxH) / p->height);
  const int w = std::max(1, int(p->width * scale)), h = std::max(1, int(p->height * scale));
  const size_t stride = (size_t(p->width) * 3 + 3) & ~size_t(3);
  std::vector<uint8_t> rows(stride * size_t(p->height));
  for (int y = 0; y < p->height; ++y)
    PlaneStore.ReadRow(const_cast<Plane*>(p), y, 0, p->width - 1, &rows[stride * size_t(y)]);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = p->width;
  info.bmiHeader.biHeight = -p->height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  SetStretchBltMode(item.hDC, HALFTONE);
  StretchDIBits(item.hDC, item.rcItem.left + (boxW - w) / 2, item.rcItem.top + (boxH - h) / 2, w, h, 0,
                0, p->width, p->height, rows.data(), &info, DIB_RGB_COLORS, SRCCOPY);
}

UINT_PTR CALLBACK OpenHook(HWND hook, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code == CDN_SELCHANGE) ShowSelection(hook);
      return 0;
    case WM_COMMAND:
      if (LOWORD(wParam) == IDC_HOOK_PREVIEW_BUTTON && HIWORD(wParam) == BN_CLICKED) {
        MakePreview(hook);
        InvalidateRect(GetDlgItem(hook, IDC_HOOK_PREVIEW), nullptr, TRUE);
      } else if (LOWORD(wParam) == IDC_HOOK_PREVIEW && HIWORD(wParam) == STN_DBLCLK &&
                 platform::FileExists(preview.path)) {
        HWND dialog = GetParent(hook);
        PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
      }
      return 0;
    case WM_DRAWITEM:
      if (wParam == IDC_HOOK_PREVIEW) DrawPreview(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_DESTROY:
      PlaneStore.FreePlane(&preview.picture);
      return 0;
  }
  return 0;
}

// The Save dialog shows the same below it, without the catalog.
UINT_PTR CALLBACK SaveHook(HWND hook, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowPos(GetDlgItem(hook, IDC_HOOK_CATALOG), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_HIDEWINDOW);
    return 0;
  }
  return OpenHook(hook, message, wParam, lParam);
}

// The hook below both dialogs.
void AddHook(OPENFILENAMEW* dialog, LPOFNHOOKPROC hook) {
  dialog->Flags |= OFN_ENABLEHOOK | OFN_ENABLETEMPLATE;
  dialog->hInstance = win32::ProgramInstance();
  dialog->lpTemplateName = L"ts_fopenhook";
  dialog->lpfnHook = hook;
}

bool OpenDialog(std::string* path) {
  const std::vector<FileFilter> list = OpenFilters();
  const std::wstring filters = FilterBlock(list);
  std::vector<wchar_t> chosen(kPathChars, L'\0');
  OPENFILENAMEW dialog = Dialog(filters, chosen.data(), lastOpen);
  if (dialog.nFilterIndex == 0 || dialog.nFilterIndex > list.size()) dialog.nFilterIndex = DWORD(list.size());
  dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_EXPLORER;
  AddHook(&dialog, OpenHook);
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
  AddHook(&dialog, SaveHook);
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
