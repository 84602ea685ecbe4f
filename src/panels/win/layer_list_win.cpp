#include "panels/win/layer_list_win.h"

#include "display/view_windows.h"
#include "document/active_canvas.h"
#include "document/canvas_manager.h"
#include "layers/layer_command.h"
#include "panels/layer_menus.h"
#include "panels/layer_rows.h"
#include "panels/layer_scroll.h"
#include "panels/thumbnail.h"
#include "panels/win/layer_row_win.h"
#include "panels/win/thumbnail_win.h"
#include "platform/platform.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

constexpr wchar_t kListClass[] = L"LayManClass";
constexpr UINT kTickMs = 500;
constexpr int kNoTimer = -1;

struct ListState {
  const Canvas* shown = nullptr;  // the canvas whose rows stand
  int listTimer = kNoTimer;
};
ListState state;

void ShowScrollRange(HWND list) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMax = int(layerPanel.listHeight) - 1;
  info.nPage = layerPanel.clientHeight;
  info.nPos = layerPanel.scrollOffset;
  SetScrollInfo(list, SB_VERT, &info, TRUE);
}

void ScrollBy(HWND list, int moved) {
  if (!moved) return;
  ScrollWindowEx(list, 0, -moved, nullptr, nullptr, nullptr, nullptr,
                 SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
  ShowScrollRange(list);
}

void Resized(HWND list) {
  RECT client;
  GetClientRect(list, &client);
  ScrollBy(list, SizeList(client.bottom));
  ShowScrollRange(list);
}

// Each row where the layout puts it, scrolled as the list is, its
// controls placed again for what it now shows; the document's title names
// the active plane.
void LayOut(HWND list) {
  if (const Canvas* canvas = state.shown; canvas && canvas == ActiveCanvas()) {
    for (const RowPlace& p : LayOutRows(canvas)) {
      HWND row = static_cast<HWND>(layerPanel.layerRows[p.index]);
      if (!row) continue;
      MoveWindow(row, p.x, p.y - layerPanel.scrollOffset, p.width, p.height, FALSE);
      SendMessageW(row, WM_INITDIALOG, 0, 0);
    }
    SetWindowTextW(static_cast<HWND>(canvas->documentWnd),
                   platform::Widen(CanvasManager.TitleText(canvas)).c_str());
  }
  Resized(list);
  InvalidateRect(list, nullptr, TRUE);
  SendMessageW(GetParent(list), kMsgStripRefresh, 0, 0);
}

void DestroyRows() {
  for (WindowHandle& row : layerPanel.layerRows) {
    if (row) DestroyWindow(static_cast<HWND>(row));
    row = nullptr;
  }
  FreeThumbnails();
  layerPanel.visibleRowCount = layerPanel.listHeight = 0;
}

void StopTimer(HWND list) {
  if (state.listTimer != kNoTimer) KillTimer(list, UINT_PTR(state.listTimer));
  state.listTimer = kNoTimer;
}

void Rebuild(HWND list, const Canvas* given) {
  StopThumbnailWorker();
  StopTimer(list);
  ScrollBy(list, ScrollList(kScrollTop, 0));
  DestroyRows();
  Canvas* canvas = ActiveCanvas();
  state.shown = canvas && canvas == given ? canvas : nullptr;
  if (state.shown)
    for (int index : RowPlanes(canvas)) layerPanel.layerRows[index] = CreateLayerRow(list);
  LayOut(list);
  SendMessageW(list, WM_SIZE, 0, 0);
  if (SetTimer(list, 0, kTickMs, nullptr)) state.listTimer = 0;
}

void Repaint(Canvas* canvas) {
  if (viewWindows.invalidate) viewWindows.invalidate(canvas);
}

void RunLayerItem(HWND list, int item, int row) {
  Canvas* canvas = ActiveCanvas();
  if (!canvas || canvas != state.shown) return;
  StopThumbnailWorker();
  if (LayerCommand(canvas, item, row)) Rebuild(list, canvas);
}

LRESULT CALLBACK ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case platform::MsgLayerRedraw:
      if (intptr_t(wParam) == -1) {
        Rebuild(list, reinterpret_cast<const Canvas*>(lParam));
      } else {
        StopThumbnailWorker();
        FreeThumbnail(int(wParam));
      }
      return 0;
    case platform::MsgCanvasGoing:
      StopThumbnailWorker();
      if (reinterpret_cast<const Canvas*>(lParam) == state.shown) {
        DestroyRows();
        state.shown = nullptr;
        LayOut(list);
      }
      return 0;
    case WM_TIMER:
      if (ActiveCanvas() == state.shown) ThumbnailTick(list, ActiveCanvas());
      return 0;
    case WM_VSCROLL:
      ScrollBy(list, ScrollList(LOWORD(wParam), HIWORD(wParam)));
      return 0;
    case WM_SIZE:
      Resized(list);
      return 0;
    case kMsgRowGone:
      if (HWND row = static_cast<HWND>(layerPanel.layerRows[wParam])) DestroyWindow(row);
      layerPanel.layerRows[wParam] = nullptr;
      return 0;
    case kMsgLayOutRows:
      LayOut(list);
      Repaint(ActiveCanvas());
      return 0;
    case kMsgRebuildRows:
      Repaint(ActiveCanvas());
      Rebuild(list, ActiveCanvas());
      return 0;
    case kMsgLayerItem:
      RunLayerItem(list, int(wParam), int(lParam));
      return 0;
    case kMsgDeletePlane:
      if (Canvas* canvas = ActiveCanvas(); canvas && canvas == state.shown) {
        StopThumbnailWorker();
        if (DeleteRowPlane(canvas, int(lParam))) {
          Repaint(canvas);
          Rebuild(list, canvas);
        }
      }
      return 0;
    case WM_DESTROY:
      StopThumbnailWorker();
      StopTimer(list);
      DestroyRows();
      state = {};
      return 0;
  }
  return DefWindowProcW(list, message, wParam, lParam);
}

}  // namespace

bool RegisterLayerListClass() {
  return win32::RegisterWindowClass(
      {kListClass, ListProc, GetSysColorBrush(COLOR_BTNFACE), CS_HREDRAW | CS_VREDRAW});
}

HWND CreateLayerList(HWND page) {
  return CreateWindowExW(WS_EX_CLIENTEDGE, kListClass, nullptr,
                         WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_CLIPCHILDREN, 0, 0, 0, 0, page,
                         nullptr, win32::ProgramInstance(), nullptr);
}
