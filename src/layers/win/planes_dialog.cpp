// tsl_alpopt, "Add and Delete": the planes of one layer in a list, and
// buttons that add, convert and delete them. What each button does and
// when it can act are the portable plane_roles' decisions.
#include <windows.h>

#include "document/canvas_manager.h"
#include "layers/plane_roles.h"
#include "layers/win/layer_dialog_ids.h"
#include "layers/win/layer_dialogs_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

struct PlanesDialog {
  Canvas* canvas;
  int layer;
  int selected;  // the index of the plane chosen in the list
};

// The list shows each plane of the layer by its label, the chosen one
// selected, and the buttons follow what it allows.
void Refill(PlanesDialog& state, HWND dialog) {
  HWND list = GetDlgItem(dialog, IDC_ALP_LIST);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (int position = 0; position < kPlanesPerLayer; ++position) {
    const int index = SlotIndex(state.layer, position);
    if (!state.canvas->planes[index].plane) break;
    const std::wstring label = platform::Widen(CanvasManager.PlaneLabel(state.canvas, index));
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(label.c_str()));
  }
  if (!state.canvas->planes[state.selected].plane) state.selected = SlotIndex(state.layer, 0);
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(PositionOf(state.selected)), 0);

  const PlaneButtons can = PlaneButtonsFor(state.canvas, state.selected);
  for (int control : {IDC_ALP_ADD_MASK, IDC_ALP_ADD_TRANSPARENCY, IDC_ALP_ADD_LINE})
    EnableWindow(GetDlgItem(dialog, control), can.add);
  for (int role = 0; role < kPlaneRoleCount; ++role)
    EnableWindow(GetDlgItem(dialog, IDC_ALP_TO_MASK + role), can.convertTo[role]);
  EnableWindow(GetDlgItem(dialog, IDC_ALP_DELETE), can.remove);
}

bool Command(PlanesDialog& state, HWND dialog, int control, int code) {
  const int layerStart = SlotIndex(state.layer, 0);
  if (control == IDC_ALP_LIST) {
    if (code != LBN_SELCHANGE) return true;
    const LRESULT chosen = SendDlgItemMessageW(dialog, control, LB_GETCURSEL, 0, 0);
    if (chosen != LB_ERR) state.selected = layerStart + static_cast<int>(chosen);
  } else if (control >= IDC_ALP_ADD_MASK && control <= IDC_ALP_ADD_LINE) {
    const int added = AddPlaneOfRole(state.canvas, layerStart,
                                     static_cast<PlaneRole>(control - IDC_ALP_ADD_MASK));
    if (added >= 0) state.selected = added;
  } else if (control >= IDC_ALP_TO_MASK && control <= IDC_ALP_TO_LINE) {
    ConvertPlane(state.canvas, state.selected, static_cast<PlaneRole>(control - IDC_ALP_TO_MASK));
  } else if (control == IDC_ALP_DELETE) {
    DeletePlaneAsked(state.canvas, state.selected);
  } else {
    return false;
  }
  Refill(state, dialog);
  return true;
}

}  // namespace

void RunPlanesDialog(Canvas* canvas, int planeIndex) {
  if (planeIndex < 0 || planeIndex >= kPlaneSlots) return;
  PlanesDialog state{canvas, LayerOf(planeIndex), planeIndex};
  win32::Dialog dialog;
  dialog.init = [&state](HWND window) { Refill(state, window); };
  dialog.command = [&state](HWND window, int control, int code) {
    return Command(state, window, control, code);
  };
  win32::RunDialog(L"tsl_alpopt", platform::BoundWindow(platform::Window::Frame), dialog);
}
