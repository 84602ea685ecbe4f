// opt_dot: fifteen tiles of the dot pen family in use, its folder popup
// and page, the next family, the tile's file opened as a picture, and the
// way back to the brushes.
#include <array>
#include <string>
#include <vector>

#include "paint/control/dot_tiles.h"
#include "paint/control/size_menu.h"
#include "paint/tip/pen_data_list.h"
#include "paint/tip/pen_record.h"
#include "paint/win/option_panels_win.h"
#include "paint/win/panel_common_win.h"
#include "paint/win/pen_panel_ids.h"
#include "paint/win/picture_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

constexpr int kOpenPathCommand = 10007;

// Thumbnails of the page shown; made anew when the page or family changes.
struct Tiles {
  int edge = 0;
  std::array<std::vector<uint8_t>, kDotTilesPerPage> pictures;
};
Tiles tiles;

// The path that command 10007 reads once the frame takes it.
std::string openedPath;

void MakeThumbnails(HWND panel) {
  tiles.edge = PictureEdge(GetDlgItem(panel, 0));
  for (int tile = 0; tile < kDotTilesPerPage; ++tile) {
    const int file = DotTileFile(tile);
    if (file >= 0) DotThumbnail(PenDataList.FilePath(file), tiles.edge, tiles.pictures[tile]);
    EnableWindow(GetDlgItem(panel, tile), file >= 0);
  }
}

void ShowPen(HWND panel) {
  const bool any = PenDataList.folderCount > 0;
  const std::wstring folder =
      any ? platform::Widen(PenDataList.folders[PenDataList.folderInUse]) + kPopupMark : L"";
  SetDlgItemTextW(panel, IDC_FOLDER_POPUP, folder.c_str());
  const std::wstring page =
      std::to_wstring(tipState.dotTilePage + 1) + L"/" + std::to_wstring(DotPageCount());
  SetDlgItemTextW(panel, IDC_DOT_PAGE, page.c_str());
  EnableWindow(GetDlgItem(panel, IDC_DOT_PAGE), DotPageCount() > 1);
  for (int id : {IDC_FOLDER_POPUP, IDC_NEXT_FOLDER}) EnableWindow(GetDlgItem(panel, id), any);
  EnableWindow(GetDlgItem(panel, IDC_OPEN_DOT_FILE), PenDataList.fileCount > 0);
  SetDlgItemTextW(panel, IDC_TIP_SIZE, platform::Widen(CurrentPenSizeLabel()).c_str());
  for (int tile = 0; tile < kDotTilesPerPage; ++tile)
    InvalidateRect(GetDlgItem(panel, tile), nullptr, FALSE);
}

// Another page or family: new thumbnails.
void PageChanged(HWND panel) {
  MakeThumbnails(panel);
  ShowPen(panel);
}

void FolderPopup(HWND panel) {
  HMENU menu = CreatePopupMenu();
  for (int i = 0; i < PenDataList.folderCount; ++i)
    AppendMenuW(menu, MF_STRING | (i == PenDataList.folderInUse ? MF_CHECKED : 0), i + kMenuBase,
                platform::Widen(PenDataList.folders[i]).c_str());
  const int chosen = PopupUnder(GetDlgItem(panel, IDC_FOLDER_POPUP), menu);
  DestroyMenu(menu);
  if (chosen && ChooseDotFolder(chosen - kMenuBase)) PageChanged(panel);
}

void OpenTileFile() {
  openedPath = PenDataList.FilePath(PenDataList.fileInUse);
  if (openedPath.empty()) return;
  PostMessageW(platform::BoundWindow(platform::Window::Frame), WM_COMMAND, kOpenPathCommand,
               reinterpret_cast<LPARAM>(openedPath.c_str()));
}

void Command(HWND panel, int id, int code) {
  if (id >= 0 && id < kDotTilesPerPage && code == BN_CLICKED) {
    if (PickDotTile(id)) ShowPen(panel);
    return;
  }
  switch (id) {
    case IDC_SWITCH_PANEL: PostMessageW(GetParent(panel), kMsgSwitchPanel, 0, 0); return;
    case IDC_OPEN_DOT_FILE: OpenTileFile(); return;
    case IDC_NEXT_FOLDER:
      if (NextDotFolder()) PageChanged(panel);
      return;
    case IDC_FOLDER_POPUP: FolderPopup(panel); return;
    case IDC_DOT_PAGE:
      NextDotPage();
      PageChanged(panel);
      return;
  }
}

INT_PTR CALLBACK DotPanelProc(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (item.CtlID >= UINT(kDotTilesPerPage)) return FALSE;
      const int file = DotTileFile(int(item.CtlID));
      DrawPictureButton(item, file >= 0 && file == PenDataList.fileInUse, tiles.edge, tiles.edge,
                        tiles.pictures[item.CtlID]);
      return TRUE;
    }
    case WM_COMMAND:
      Command(panel, LOWORD(wParam), HIWORD(wParam));
      if (HIWORD(wParam) == BN_CLICKED) GiveFocusBack();
      return TRUE;
    case kMsgRefreshPanel:
      MakeThumbnails(panel);
      ShowPen(panel);
      return TRUE;
  }
  return FALSE;
}

}  // namespace

HWND CreateDotPanel(HWND page) {
  return CreateDialogW(win32::ProgramInstance(), L"opt_dot", page, DotPanelProc);
}
