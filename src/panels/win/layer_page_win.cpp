#include "panels/win/layer_page_win.h"

#include <algorithm>

#include "display/pointer_routing.h"
#include "document/active_canvas.h"
#include "document/canvas_manager.h"
#include "layers/layer_command.h"
#include "paint/modes/protection.h"
#include "paint/win/panel_common_win.h"
#include "panels/layer_menus.h"
#include "panels/win/color_mixer_win.h"
#include "panels/win/layer_list_win.h"
#include "panels/win/layer_menus_win.h"
#include "panels/win/layer_panel_ids.h"
#include "panels/win/panel_bitmaps_win.h"
#include "panels/win/thumbnail_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"
#include "resources/strings.h"
#include "settings/settings.h"

namespace {

constexpr int kPageWidth = 180;  // the control panel's column
constexpr int kStringEdit = 17000;
constexpr int kStringAddDeletePlanes = 17001;

struct PageState {
  HWND list = nullptr;
  int stripHeight = 0;  // pixels of the strip over the list
};
PageState state;

void SetText(HWND page, int id, const std::string& text) {
  SetDlgItemTextW(page, id, platform::Widen(text).c_str());
}

// The strip shows the active plane and the switches as they stand.
void ShowStrip(HWND page) {
  const Canvas* canvas = ActiveCanvas();
  SetText(page, IDC_STRIP_PLANE, canvas ? StripPlaneName(canvas) : "");
  for (int id : {IDC_STRIP_PLANE, IDC_STRIP_PLANE_POPUP, IDC_STRIP_EDIT})
    EnableWindow(GetDlgItem(page, id), canvas != nullptr);
  for (int id : {IDC_STRIP_PROTECT, IDC_STRIP_BACKGROUND, IDC_STRIP_SHOW_PLANES})
    InvalidateRect(GetDlgItem(page, id), nullptr, FALSE);
}

POINT BelowControl(HWND page, int id) {
  RECT r;
  GetWindowRect(GetDlgItem(page, id), &r);
  return {r.left, r.bottom};
}

// The planes of the active layer; the further ones and the way to the
// planes dialog are added each time.
void PopupPlanes(HWND page) {
  Canvas* canvas = ActiveCanvas();
  if (!canvas) return;
  const PlaneMenu menu = PlaneMenuOf(canvas);
  const int chosen =
      TrackNamedMenu(L"tsPlaneMenu", page, BelowControl(page, IDC_STRIP_PLANE), [&](HMENU popup) {
        EnableMenuItem(popup, kPlaneItemMask,
                       MF_BYCOMMAND | (menu.maskEnabled ? MF_ENABLED : MF_GRAYED));
        EnableMenuItem(popup, kPlaneItemTransparency,
                       MF_BYCOMMAND | (menu.transparencyEnabled ? MF_ENABLED : MF_GRAYED));
        for (const PlaneMenuItem& item : menu.further)
          AppendMenuW(popup, MF_STRING, UINT_PTR(item.item), platform::Widen(item.text).c_str());
        if (!menu.addDelete) return;
        AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(popup, MF_STRING, kPlaneItemAddDelete,
                    platform::Widen(StringText(kStringAddDeletePlanes)).c_str());
      });
  if (chosen == kPlaneItemAddDelete) {
    PostMessageW(state.list, kMsgLayerItem, kLayerItemPlanes, canvas->activePlane);
    return;
  }
  const int plane = PlaneOfItem(canvas, chosen);
  if (plane < 0) return;
  CanvasManager.SelectPlane(canvas, plane);
  PostMessageW(state.list, kMsgLayOutRows, 0, 0);
}

// The colour behind transparent parts, for every picture.
void ChooseBackground(HWND page) {
  constexpr int kStringBackground = 1001;
  int red = settings.backgroundRed, green = settings.backgroundGreen;
  int blue = settings.backgroundBlue;
  if (!MixColor(page, &red, &green, &blue, StringText(kStringBackground))) return;
  settings.backgroundRed = red;
  settings.backgroundGreen = green;
  settings.backgroundBlue = blue;
  RedrawWindow(platform::BoundWindow(platform::Window::MdiClient), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ALLCHILDREN);
  ShowStrip(page);
}

void Command(HWND page, int id) {
  const Canvas* canvas = ActiveCanvas();
  switch (id) {
    case IDC_STRIP_PLANE:
    case IDC_STRIP_PLANE_POPUP:
      PopupPlanes(page);
      return;
    case IDC_STRIP_EDIT:
      if (canvas)
        PopupRowMenu(state.list, page, SlotIndex(LayerOf(canvas->activePlane), 0),
                     BelowControl(page, id));
      return;
    case IDC_STRIP_PROTECT:
      protection.protectTransparency = !protection.protectTransparency;
      ShowStrip(page);
      return;
    case IDC_STRIP_SHOW_PLANES:
      settings.showPlanes = !settings.showPlanes;
      ShowStrip(page);
      SendMessageW(state.list, platform::MsgLayerRedraw, WPARAM(-1), LPARAM(ActiveCanvas()));
      return;
    case IDC_STRIP_BACKGROUND:
      ChooseBackground(page);
      return;
  }
}

void DrawButton(const DRAWITEMSTRUCT& item) {
  RECT r = item.rcItem;
  DrawFrameControl(item.hDC, &r, DFC_BUTTON,
                   DFCS_BUTTONPUSH | ((item.itemState & ODS_SELECTED) ? DFCS_PUSHED : 0));
  InflateRect(&r, -3, -3);
  switch (item.CtlID) {
    case IDC_STRIP_PROTECT:
      DrawPanelBitmap(item.hDC, protection.protectTransparency ? L"ly_t1" : L"ly_t0", r);
      return;
    case IDC_STRIP_SHOW_PLANES:
      DrawPanelBitmap(item.hDC, settings.showPlanes ? L"ly_s1" : L"ly_s0", r);
      return;
    case IDC_STRIP_BACKGROUND: {
      HBRUSH brush = CreateSolidBrush(
          RGB(settings.backgroundRed, settings.backgroundGreen, settings.backgroundBlue));
      FillRect(item.hDC, &r, brush);
      DeleteObject(brush);
      FrameRect(item.hDC, &r, GetSysColorBrush(COLOR_BTNSHADOW));
      return;
    }
  }
}

void Initialize(HWND page) {
  FitDialogToWidth(page, kPageWidth);
  RECT client;
  GetClientRect(page, &client);
  state.stripHeight = client.bottom;
  SetText(page, IDC_STRIP_EDIT, std::string(StringText(kStringEdit)) + " \u25BE");
  SetDlgItemTextW(page, IDC_STRIP_PLANE_POPUP, L"\u25BE");
  state.list = CreateLayerList(page);
  platform::BindWindow(platform::Window::LayerPanel, state.list);
  ShowStrip(page);
}

INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      Initialize(page);
      return FALSE;
    case WM_SIZE:
      MoveWindow(state.list, 0, state.stripHeight, LOWORD(lParam),
                 std::max(0, int(HIWORD(lParam)) - state.stripHeight), TRUE);
      return TRUE;
    case WM_DRAWITEM:
      DrawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_COMMAND:
      // Owner-drawn buttons tell a quick second press as a double click.
      if (HIWORD(wParam) == BN_CLICKED || HIWORD(wParam) == BN_DOUBLECLICKED) {
        Command(page, LOWORD(wParam));
        GiveFocusBack();
      }
      return TRUE;
    case kMsgStripRefresh:
    case platform::MsgPanelsRepaint:
      ShowStrip(page);
      return TRUE;
    case WM_DESTROY:
      platform::BindWindow(platform::Window::LayerPanel, nullptr);
      state = {};
      return FALSE;
  }
  return FALSE;
}

}  // namespace

HWND CreateLayerPage(HWND panel, const std::string&) {
  if (!RegisterLayerListClass() || !RegisterThumbnailClass()) return nullptr;
  HWND page = CreateDialogW(win32::ProgramInstance(), L"da00_ctrl3sub", panel, PageProc);
  // A stroke or a drag on the picture may change the plane a worker reads.
  if (page) pressHooks.Add([](Canvas*) { StopThumbnailWorker(); });
  return page;
}
