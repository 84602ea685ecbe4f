// The property sheet "Preference": seven pages whose controls write the
// live settings the moment they change. Cancel has nothing to undo.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "resources/strings.h"
#include "resources/win/resource_ids.h"
#include "settings/settings.h"
#include "shell/documents.h"
#include "shell/win/dialogs.h"
#include "shell/win/frame_window.h"
#include "shell/win/shell_globals.h"

namespace {

constexpr int kStringPreference = 1000;
constexpr int kStringVirtual = 26000;
constexpr int kStringPhysical = 26001;

using Field = int32_t Settings::*;

// A check box; `inverted` for the boxes that show the complement.
struct CheckField {
  int control;
  Field field;
  bool inverted;
};
// Radio buttons first..last for the values 0, 1, ...
struct RadioField {
  int first, last;
  Field field;
};
// A number field with its spin.
struct NumberField {
  int edit, spin, low, high;
  Field field;
};
// A list of the two storage kinds.
struct BufferField {
  int control;
  Field field;
};

struct Page {
  const wchar_t* name;
  std::vector<CheckField> checks;
  std::vector<RadioField> radios;
  std::vector<NumberField> numbers;
  std::vector<BufferField> buffers;
  bool iconSets;
};

// tsl_env4's boxes stay disabled: nothing in the settings record is theirs.
const Page kPages[] = {
    {L"tsl_env1",
     {{IDC_ENV_SMALL_ICONS, &Settings::smallIcons, false},
      {IDC_ENV_AUTO_ADJUST, &Settings::autoAdjustWindow, false},
      {IDC_ENV_AUTO_TONE, &Settings::autoInitToneFilter, false},
      {IDC_ENV_NO_CONNECT_AIRBRUSH, &Settings::noConnectAirbrush, false}},
     {{IDC_ENV_NOTATION_255, IDC_ENV_NOTATION_100, &Settings::numberNotation}},
     {},
     {},
     true},
    {L"tsl_env2",
     {{IDC_ENV_NO_THUMBNAIL_REDRAW, &Settings::noThumbnailRedraw, false},
      {IDC_ENV_DOUBLE_ACCURACY, &Settings::doubleAccuracyDefault, false},
      {IDC_ENV_USE_MASK, &Settings::noMaskPlane, true},
      {IDC_ENV_USE_TRANSPARENCY, &Settings::noTransparencyPlane, true}},
     {{IDC_ENV_DISPLAY_ONE, IDC_ENV_DISPLAY_COMPOSITION, &Settings::defaultDisplay}},
     {},
     {},
     false},
    {L"tsl_env3",
     {{IDC_ENV_RESTRAIN_UNDO, &Settings::restrainUndoDuringFreehand, false}},
     {},
     {{IDC_ENV_UNDO_COUNT, IDC_ENV_UNDO_SPIN, 0, 10, &Settings::undoCount}},
     {},
     false},
    {L"tsl_env4", {}, {}, {}, {}, false},
    {L"tsl_env5", {{IDC_ENV_NO_WARN_TSL, &Settings::noWarnNotTsl, false}}, {}, {}, {}, false},
    {L"tsl_env6",
     {},
     {{IDC_ENV_AA_FAST, IDC_ENV_AA_QUALITY, &Settings::antiAlias}},
     {{IDC_ENV_SMOOTHING, IDC_ENV_SMOOTHING_SPIN, 1, 20, &Settings::positionSmoothing}},
     {},
     false},
    {L"tsl_env7",
     {},
     {},
     {},
     {{IDC_ENV_IMAGE_BUFFER, &Settings::imageBuffer},
      {IDC_ENV_WORK_BUFFER, &Settings::workBuffer},
      {IDC_ENV_UNDO_BUFFER, &Settings::undoBuffer}},
     false},
};

std::wstring IconSetFolder() { return platform::Widen(startFolder) + L"icon\\base\\"; }

// Every folder under the icon sets' folder, the chosen one selected.
void FillIconSets(HWND list) {
  WIN32_FIND_DATAW found;
  HANDLE search = FindFirstFileW((IconSetFolder() + L"*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const bool folder = found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
    if (folder && lstrcmpW(found.cFileName, L".") && lstrcmpW(found.cFileName, L".."))
      SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(found.cFileName));
  } while (FindNextFileW(search, &found));
  FindClose(search);
  const std::wstring chosen = platform::Widen(settings.iconSetName);
  SendMessageW(list, LB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(chosen.c_str()));
}

void ChooseIconSet(HWND list) {
  const auto index = SendMessageW(list, LB_GETCURSEL, 0, 0);
  if (index < 0) return;
  std::wstring name(static_cast<size_t>(SendMessageW(list, LB_GETTEXTLEN, index, 0)), L'\0');
  SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(name.data()));
  const std::string utf8 = platform::Narrow(name);
  if (utf8.size() >= sizeof settings.iconSetName) return;  // a name the record can't hold
  std::memset(settings.iconSetName, 0, sizeof settings.iconSetName);
  std::memcpy(settings.iconSetName, utf8.data(), utf8.size());
}

void InitPage(HWND page, const Page& p) {
  for (const CheckField& c : p.checks)
    CheckDlgButton(page, c.control, (settings.*c.field != 0) != c.inverted ? BST_CHECKED : BST_UNCHECKED);
  for (const RadioField& r : p.radios)
    CheckRadioButton(page, r.first, r.last,
                     r.first + std::clamp(settings.*r.field, 0, r.last - r.first));
  for (const NumberField& n : p.numbers) {
    SendDlgItemMessageW(page, n.spin, UDM_SETRANGE32, n.low, n.high);
    SendDlgItemMessageW(page, n.spin, UDM_SETPOS32, 0, std::clamp(settings.*n.field, n.low, n.high));
  }
  const std::wstring kinds[] = {platform::Widen(StringText(kStringVirtual)),
                                platform::Widen(StringText(kStringPhysical))};
  for (const BufferField& b : p.buffers) {
    for (const std::wstring& kind : kinds)
      SendDlgItemMessageW(page, b.control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(kind.c_str()));
    SendDlgItemMessageW(page, b.control, CB_SETCURSEL, std::clamp(settings.*b.field, 0, 1), 0);
  }
  if (p.iconSets) FillIconSets(GetDlgItem(page, IDC_ENV_ICON_SETS));
}

// The control that changed writes its field.
void Changed(HWND page, const Page& p, int control, int code) {
  for (const CheckField& c : p.checks)
    if (c.control == control)
      settings.*c.field = (IsDlgButtonChecked(page, control) == BST_CHECKED) != c.inverted;
  for (const RadioField& r : p.radios)
    if (control >= r.first && control <= r.last && IsDlgButtonChecked(page, control) == BST_CHECKED)
      settings.*r.field = control - r.first;
  for (const NumberField& n : p.numbers)
    if (n.edit == control && code == EN_CHANGE) {
      BOOL read = FALSE;
      const int value = static_cast<int>(GetDlgItemInt(page, control, &read, FALSE));
      if (read) settings.*n.field = std::clamp(value, n.low, n.high);
    }
  for (const BufferField& b : p.buffers)
    if (b.control == control && code == CBN_SELCHANGE)
      settings.*b.field = static_cast<int32_t>(SendDlgItemMessageW(page, control, CB_GETCURSEL, 0, 0));
  if (p.iconSets && control == IDC_ENV_ICON_SETS && code == LBN_SELCHANGE)
    ChooseIconSet(GetDlgItem(page, control));
}

INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    const auto* sheetPage = reinterpret_cast<const PROPSHEETPAGEW*>(lParam);
    SetWindowLongPtrW(page, DWLP_USER, sheetPage->lParam);
    InitPage(page, *reinterpret_cast<const Page*>(sheetPage->lParam));
    return TRUE;
  }
  const auto* p = reinterpret_cast<const Page*>(GetWindowLongPtrW(page, DWLP_USER));
  if (p && message == WM_COMMAND) {
    Changed(page, *p, LOWORD(wParam), HIWORD(wParam));
    return TRUE;
  }
  return FALSE;
}

// The sheet stands where the system puts a new window; it goes to the
// middle of the frame, as dialogs do.
int CALLBACK SheetCallback(HWND sheet, UINT message, LPARAM) {
  if (message == PSCB_INITIALIZED) win32::CentreOnOwner(sheet);
  return 0;
}

}  // namespace

void ShowPreferences(HWND owner) {
  PROPSHEETPAGEW pages[std::size(kPages)] = {};
  for (size_t i = 0; i < std::size(kPages); ++i) {
    pages[i].dwSize = sizeof pages[i];
    pages[i].hInstance = win32::ProgramInstance();
    pages[i].pszTemplate = kPages[i].name;
    pages[i].pfnDlgProc = PageProc;
    pages[i].lParam = reinterpret_cast<LPARAM>(&kPages[i]);
  }
  const std::wstring title = platform::Widen(StringText(kStringPreference));
  PROPSHEETHEADERW sheet{};
  sheet.dwSize = sizeof sheet;
  sheet.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW | PSH_USECALLBACK;
  sheet.pfnCallback = SheetCallback;
  sheet.hwndParent = owner;
  sheet.hInstance = win32::ProgramInstance();
  sheet.pszCaption = title.c_str();
  sheet.nPages = std::size(kPages);
  sheet.ppsp = pages;
  PropertySheetW(&sheet);
  // The icon size or the buffers may have changed: the bars and every
  // document show themselves anew, and what depends on the buffers is
  // made again.
  LayOutFrameWindows();
  RedrawWindow(mdiClient, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  preferencesClosedHooks.Run();
}
