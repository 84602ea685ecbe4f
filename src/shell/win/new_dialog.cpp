// tesel_new: the size of a new canvas in pixels, as a length and as a
// resolution, kept consistent by the rules of new_canvas_size.h. A typed
// field changes the other group at once; the field itself shows its
// clamped value when the caret leaves it.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "resources/strings.h"
#include "resources/win/resource_ids.h"
#include "settings/number_lists.h"
#include "shell/win/dialogs.h"
#include "shell/win/frame_menus.h"
#include "shell/win/shell_globals.h"

namespace {

constexpr int kStringEditSizes = 26101;
constexpr UINT kEditSizesItem = 1000;  // above any list entry's item number

struct NewDialog {
  NewCanvasFields* fields;
  bool writing = false;  // fields are being filled in by the dialog itself
};

NewDialog* StateOf(HWND dialog) {
  return reinterpret_cast<NewDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

std::string FieldText(HWND dialog, int control) {
  wchar_t text[64] = {};
  GetDlgItemTextW(dialog, control, text, 64);
  return platform::Narrow(text);
}

void SetField(NewDialog& state, HWND dialog, int control, const std::string& text) {
  state.writing = true;
  SetDlgItemTextW(dialog, control, platform::Widen(text).c_str());
  state.writing = false;
}

void ShowPixels(NewDialog& state, HWND dialog) {
  SetField(state, dialog, IDC_NEW_WIDTH, std::to_string(state.fields->width));
  SetField(state, dialog, IDC_NEW_HEIGHT, std::to_string(state.fields->height));
}

void ShowLengths(NewDialog& state, HWND dialog) {
  SetField(state, dialog, IDC_NEW_LENGTH_WIDTH, FormatLength(state.fields->lengthWidth));
  SetField(state, dialog, IDC_NEW_LENGTH_HEIGHT, FormatLength(state.fields->lengthHeight));
}

void ShowAll(NewDialog& state, HWND dialog) {
  ShowPixels(state, dialog);
  ShowLengths(state, dialog);
  SetField(state, dialog, IDC_NEW_DPI, std::to_string(state.fields->dpi));
  CheckRadioButton(dialog, IDC_NEW_MILLIMETRES, IDC_NEW_INCHES,
                   state.fields->unit == LengthUnit::Millimetres ? IDC_NEW_MILLIMETRES
                                                                 : IDC_NEW_INCHES);
}

// A typed change: the field's group takes the value, the other group
// follows.
void Typed(NewDialog& state, HWND dialog, int control) {
  NewCanvasFields& f = *state.fields;
  const std::string text = FieldText(dialog, control);
  switch (control) {
    case IDC_NEW_WIDTH: f.width = TypedPixels(text); break;
    case IDC_NEW_HEIGHT: f.height = TypedPixels(text); break;
    case IDC_NEW_DPI: f.dpi = TypedDpi(text); break;
    case IDC_NEW_LENGTH_WIDTH: f.lengthWidth = TypedLength(text); break;
    case IDC_NEW_LENGTH_HEIGHT: f.lengthHeight = TypedLength(text); break;
    default: return;
  }
  if (control == IDC_NEW_LENGTH_WIDTH || control == IDC_NEW_LENGTH_HEIGHT) {
    RecomputePixels(f);
    ShowPixels(state, dialog);
  } else {
    RecomputeLengths(f);
    ShowLengths(state, dialog);
  }
}

// The caret left a field: it shows the value in force. Only that field is
// written, so that the next one keeps the selection it was given.
void Settled(NewDialog& state, HWND dialog, int control) {
  const NewCanvasFields& f = *state.fields;
  switch (control) {
    case IDC_NEW_WIDTH: SetField(state, dialog, control, std::to_string(f.width)); break;
    case IDC_NEW_HEIGHT: SetField(state, dialog, control, std::to_string(f.height)); break;
    case IDC_NEW_DPI: SetField(state, dialog, control, std::to_string(f.dpi)); break;
    case IDC_NEW_LENGTH_WIDTH: SetField(state, dialog, control, FormatLength(f.lengthWidth)); break;
    case IDC_NEW_LENGTH_HEIGHT: SetField(state, dialog, control, FormatLength(f.lengthHeight)); break;
  }
}

void Spin(NewDialog& state, HWND dialog, int spin, int delta) {
  NewCanvasFields& f = *state.fields;
  double& length = spin == IDC_NEW_LENGTH_WIDTH_SPIN ? f.lengthWidth : f.lengthHeight;
  length = SpinLength(length, delta > 0 ? 1 : -1, f.unit);
  RecomputePixels(f);
  ShowPixels(state, dialog);
  ShowLengths(state, dialog);
}

// A popup under a button; the chosen item's number, 0 for none.
UINT PopupUnder(HWND dialog, int button, HMENU popup) {
  RECT r;
  GetWindowRect(GetDlgItem(dialog, button), &r);
  return static_cast<UINT>(TrackPopupMenu(popup, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN,
                                          r.left, r.bottom, 0, dialog, nullptr));
}

// The saved sizes as "%d x %d", then "Edit...".
void PixelList(NewDialog& state, HWND dialog) {
  HMENU popup = CreatePopupMenu();
  const int count = canvasSizes.Count();
  for (int i = 0; i < count; ++i) {
    wchar_t text[48];
    std::swprintf(text, 48, L"%d x %d", canvasSizes.column[0][i], canvasSizes.column[1][i]);
    AppendMenuW(popup, MF_STRING, static_cast<UINT_PTR>(i + 1), text);
  }
  if (count) AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(popup, MF_STRING, kEditSizesItem, platform::Widen(StringText(kStringEditSizes)).c_str());
  const UINT choice = PopupUnder(dialog, IDC_NEW_PIXEL_LIST, popup);
  DestroyMenu(popup);
  if (choice == kEditSizesItem) {
    RunCanvasSizesDialog(dialog);
  } else if (choice >= 1 && static_cast<int>(choice) <= count) {
    state.fields->width = std::clamp(canvasSizes.column[0][choice - 1], kMinNewPixels, kMaxNewPixels);
    state.fields->height = std::clamp(canvasSizes.column[1][choice - 1], kMinNewPixels, kMaxNewPixels);
    RecomputeLengths(*state.fields);
    ShowPixels(state, dialog);
    ShowLengths(state, dialog);
  }
}

void PaperList(NewDialog& state, HWND dialog) {
  HMENU presets = PopupMenuNamed(L"daNewPaper");
  if (!presets) return;
  const UINT choice = PopupUnder(dialog, IDC_NEW_PAPER_LIST, GetSubMenu(presets, 0));
  if (choice == 0) return;
  ChoosePaperPreset(*state.fields, static_cast<int>(choice) - 1);
  ShowPixels(state, dialog);
  ShowLengths(state, dialog);
}

void Init(HWND dialog, NewDialog* state) {
  SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(state));
  for (int spin : {IDC_NEW_LENGTH_WIDTH_SPIN, IDC_NEW_LENGTH_HEIGHT_SPIN})
    SendDlgItemMessageW(dialog, spin, UDM_SETRANGE32, 0, 1000);  // up counts up
  ShowAll(*state, dialog);
  HWND width = GetDlgItem(dialog, IDC_NEW_WIDTH);
  SetFocus(width);
  SendMessageW(width, EM_SETSEL, 0, -1);
}

BOOL Command(NewDialog& state, HWND dialog, int control, int code) {
  switch (control) {
    case IDOK:
    case IDCANCEL: EndDialog(dialog, control); return TRUE;
    case IDC_NEW_PIXEL_LIST: PixelList(state, dialog); return TRUE;
    case IDC_NEW_PAPER_LIST: PaperList(state, dialog); return TRUE;
    case IDC_NEW_MILLIMETRES:
    case IDC_NEW_INCHES:
      ChangeUnit(*state.fields,
                 control == IDC_NEW_MILLIMETRES ? LengthUnit::Millimetres : LengthUnit::Inches);
      ShowLengths(state, dialog);
      return TRUE;
  }
  if (code == EN_CHANGE && !state.writing) Typed(state, dialog, control);
  if (code == EN_KILLFOCUS) Settled(state, dialog, control);
  return TRUE;
}

INT_PTR CALLBACK NewDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    Init(dialog, reinterpret_cast<NewDialog*>(lParam));
    return FALSE;  // the focus is set
  }
  NewDialog* state = StateOf(dialog);
  if (!state) return FALSE;
  switch (message) {
    case WM_COMMAND:
      return Command(*state, dialog, LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY: {
      const auto* change = reinterpret_cast<const NMUPDOWN*>(lParam);
      if (change->hdr.code != UDN_DELTAPOS) return FALSE;
      Spin(*state, dialog, static_cast<int>(change->hdr.idFrom), change->iDelta);
      SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);  // the control keeps no count
      return TRUE;
    }
  }
  return FALSE;
}

}  // namespace

int RunNewDialog(NewCanvasFields& fields) {
  NewDialog state{&fields};
  return DialogBoxParamW(win32::ProgramInstance(), L"tesel_new", frameWnd, NewDialogProc,
                         reinterpret_cast<LPARAM>(&state)) == IDOK;
}
