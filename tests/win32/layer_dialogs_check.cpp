// The layer dialogs on a display under Wine (or on Windows): each opens on
// a small canvas, has its labels measured against their controls, is
// photographed into the folder named on the command line, is driven
// through its controls, and closes; what it answered is then checked.
// One line per check; exit code 1 when any failed.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "check_report.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "layers/layer_options.h"
#include "layers/win/layer_dialog_ids.h"
#include "layers/win/layer_dialogs_win.h"
#include "layers/win/layer_windows_win.h"
#include "platform/win32/win32_platform.h"
#include "store/plane_store.h"

namespace {

std::string shotFolder;
std::string shotName;
std::function<void(HWND)> driver;  // what to do with the dialog once it shows

std::wstring Text(HWND window) {
  wchar_t text[256] = {};
  GetWindowTextW(window, text, 256);
  return text;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

// A label is clipped when its text, in the control's font, is wider than
// what the control leaves for it beside a check mark or inside a frame.
BOOL CALLBACK MeasureLabel(HWND control, LPARAM clipped) {
  std::wstring text = Text(control);
  std::erase(text, L'&');
  const std::wstring kind = ClassOf(control);
  if (text.empty() || !IsWindowVisible(control) || (kind != L"Button" && kind != L"Static"))
    return TRUE;
  RECT r;
  GetClientRect(control, &r);
  int room = r.right - r.left;
  const LONG type = GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
  if (kind == L"Button") {
    if (type == BS_GROUPBOX)
      room -= 16;
    else if (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON)
      room -= 8;
    else
      room -= GetSystemMetrics(SM_CXMENUCHECK) + 4;
  }
  HDC dc = GetDC(control);
  HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
  SIZE size{};
  GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
  SelectObject(dc, old);
  ReleaseDC(control, dc);
  if (size.cx > room || size.cy > r.bottom - r.top)
    *reinterpret_cast<std::string*>(clipped) += " [" + platform::Narrow(text) + " " +
                                                std::to_string(size.cx) + ">" +
                                                std::to_string(room) + "]";
  return TRUE;
}

// The dialog as it stands on the screen, as a 24-bit BMP file.
void SaveShot(HWND dialog, const std::string& name) {
  RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  RECT r;
  GetWindowRect(dialog, &r);
  const int width = r.right - r.left, height = r.bottom - r.top;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, r.left, r.top, SRCCOPY);
  GdiFlush();
  const DWORD imageSize = static_cast<DWORD>((width * 3 + 3) / 4 * 4 * height);
  BITMAPFILEHEADER file{0x4D42, static_cast<DWORD>(sizeof file + sizeof info.bmiHeader + imageSize),
                        0, 0, static_cast<DWORD>(sizeof file + sizeof info.bmiHeader)};
  if (FILE* out = std::fopen((shotFolder + "\\" + name + ".bmp").c_str(), "wb")) {
    std::fwrite(&file, sizeof file, 1, out);
    std::fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, out);
    std::fwrite(bits, imageSize, 1, out);
    std::fclose(out);
  }
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
}

BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
  if (!IsWindowVisible(window) || ClassOf(window) != L"#32770") return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

void CALLBACK Tick(HWND, UINT, UINT_PTR timer, DWORD) {
  HWND dialog = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&dialog));
  if (!dialog || !driver) return;
  KillTimer(nullptr, timer);
  const std::function<void(HWND)> drive = std::move(driver);
  driver = nullptr;
  SaveShot(dialog, shotName);
  std::string clipped;
  EnumChildWindows(dialog, MeasureLabel, reinterpret_cast<LPARAM>(&clipped));
  Report(shotName + ": every label fits its control", clipped.empty(), clipped);
  drive(dialog);
}

// Opens a dialog through `open`; `drive` gets it once it is on the screen.
bool Run(const std::string& name, std::function<void(HWND)> drive,
         const std::function<bool()>& open) {
  shotName = name;
  driver = std::move(drive);
  SetTimer(nullptr, 0, 300, Tick);
  return open();
}

void Click(HWND dialog, int control) { SendDlgItemMessageW(dialog, control, BM_CLICK, 0, 0); }
void Type(HWND dialog, int control, const wchar_t* text) { SetDlgItemTextW(dialog, control, text); }
void Close(HWND dialog, int button) { PostMessageW(dialog, WM_COMMAND, button, 0); }

void CheckAddLayer(const Canvas* canvas) {
  int width = 0, height = 0;
  const bool ok = Run(
      "tsl_layeradd",
      [](HWND d) {
        Click(d, IDC_LAYERADD_SIZED);
        Type(d, IDC_LAYERADD_WIDTH, L"30");
        Type(d, IDC_LAYERADD_HEIGHT, L"999999");
        Close(d, IDOK);
      },
      [&] { return layerWindows.addLayerDialog(canvas, &width, &height); });
  Report("Add Layer: a typed size, the height held to the largest",
         ok && width == 30 && height == 10240,
         std::to_string(width) + " x " + std::to_string(height));
}

void CheckLayerOptions(Canvas* canvas) {
  PlaneSlot& slot = canvas->planes[0];
  std::string live;
  bool ok = Run(
      "tsl_layeropt",
      [&](HWND d) {
        Type(d, IDC_LAYOPT_NAME, L"Sky \u7a7a");
        SendDlgItemMessageW(d, IDC_LAYOPT_MODE, CB_SETCURSEL, 3, 0);
        SendMessageW(d, WM_COMMAND, MAKEWPARAM(IDC_LAYOPT_MODE, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(d, IDC_LAYOPT_MODE)));
        Type(d, IDC_LAYOPT_OPACITY, L"40");
        live = std::string(slot.name) + " " + std::to_string(slot.mixMode) + " " +
               std::to_string(slot.opacityLoss) + " " +
               std::to_string(SendDlgItemMessageW(d, IDC_LAYOPT_SLIDER, TBM_GETPOS, 0, 0));
        Close(d, IDCANCEL);
      },
      [&] { return layerWindows.layerOptionsDialog(canvas, 0); });
  // 40 % opaque is 60 % of loss: (60 x 255 + 50) / 100 = 153.
  Report("Layer Setting: name, mode and opacity reach the layer while open",
         live == "Sky \xE7\xA9\xBA 3 153 40", live);
  Report("Layer Setting: Cancel puts them back", !ok && std::string(slot.name) == "LAYER0" &&
                                                     slot.mixMode == kMixNormal &&
                                                     slot.opacityLoss == 0);

  ok = Run(
      "tsl_layeropt_slider",
      [](HWND d) {
        SendDlgItemMessageW(d, IDC_LAYOPT_SLIDER, TBM_SETPOS, TRUE, 25);
        SendMessageW(d, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, 25),
                     reinterpret_cast<LPARAM>(GetDlgItem(d, IDC_LAYOPT_SLIDER)));
        Close(d, IDOK);
      },
      [&] { return layerWindows.layerOptionsDialog(canvas, 0); });
  // 75 % of loss: (75 x 255 + 50) / 100 = 191.
  Report("Layer Setting: the slider's opacity is kept on OK", ok && slot.opacityLoss == 191,
         std::to_string(slot.opacityLoss));
}

void CheckPlanes(Canvas* canvas) {
  std::string seen;
  Run(
      "tsl_alpopt",
      [&](HWND d) {
        const bool imageDeletable = IsWindowEnabled(GetDlgItem(d, IDC_ALP_DELETE));
        Click(d, IDC_ALP_ADD_LINE);
        const LRESULT rows = SendDlgItemMessageW(d, IDC_ALP_LIST, LB_GETCOUNT, 0, 0);
        const LRESULT chosen = SendDlgItemMessageW(d, IDC_ALP_LIST, LB_GETCURSEL, 0, 0);
        const bool lineConvertible = IsWindowEnabled(GetDlgItem(d, IDC_ALP_TO_LINE));
        Click(d, IDC_ALP_TO_TRANSPARENCY);
        seen = std::to_string(imageDeletable) + " " + std::to_string(rows) + " " +
               std::to_string(chosen) + " " + std::to_string(lineConvertible);
        SaveShot(d, "tsl_alpopt_added");
        Close(d, IDCANCEL);
      },
      [&] {
        layerWindows.planesDialog(canvas, 0);
        return true;
      });
  const PlaneSlot& added = canvas->planes[3];
  Report("Add and Delete: Line Drawing adds a plane, selected, that converts",
         seen == "0 4 3 0" && added.plane && added.planeFlags[kFlagTransparency] &&
             !added.planeFlags[kFlagLineDraw],
         seen);
}

void CheckMerges() {
  MergeChoice choice;
  bool hiddenShown = true;
  bool ok = Run(
      "tsl_layermix",
      [&](HWND d) {
        hiddenShown = IsWindowVisible(GetDlgItem(d, IDC_MIX_COMPLETE_ONLY));
        Click(d, IDC_MIX_FLATTENED);
        Click(d, IDC_MIX_ALL_OPTIONS);
        Close(d, IDOK);
      },
      [&] { return layerWindows.mergeLayersDialog(&choice); });
  Report("Merge Layers: kind and option chosen, the third option unseen",
         ok && choice.kind == MergeKind::FlattenedLayer && choice.mergeOption == 1 && !hiddenShown);
  int merge = 0;
  ok = Run(
      "tsl_layermix2",
      [](HWND d) {
        Click(d, IDC_MIX_ALL_OPTIONS);
        Close(d, IDOK);
      },
      [&] { return layerWindows.mergeDownDialog(&merge); });
  Report("Merge Under Layers: Merge All Options", ok && merge == 1);
}

void CheckShadow() {
  std::string title;
  layerWindows.chooseColor = [&](const char* t, int* r, int* g, int* b) {
    title = t;
    *r = 10, *g = 20, *b = 200;
    return true;
  };
  ShadowChoice choice;
  choice.blur = 2;
  const bool ok = Run(
      "tsl_addshadow",
      [](HWND d) {
        Type(d, IDC_SHADOW_DX, L"-5");
        Type(d, IDC_SHADOW_DY, L"7");
        Type(d, IDC_SHADOW_BLUR, L"");
        Click(d, IDC_SHADOW_COLOR);
        SaveShot(d, "tsl_addshadow_colour");
        Close(d, IDOK);
      },
      [&] { return layerWindows.dropShadowDialog(&choice); });
  Report("Drop Shadow: offsets either way, the blur kept when the field is empty, the colour",
         ok && choice.dx == -5 && choice.dy == 7 && choice.blur == 2 && choice.red == 10 &&
             choice.green == 20 && choice.blue == 200 && title == "Shadow Color",
         title);
}

void CheckSizes(const Canvas* canvas) {
  SideChoice sides;
  bool ok = Run(
      "tsl_canvresize",
      [](HWND d) {
        Click(d, IDC_SIDE_CHECK + kSideLeft);
        Type(d, IDC_SIDE_AMOUNT + kSideLeft, L"2000");
        Click(d, IDC_SIDE_SHRINK + kSideTop);
        Close(d, IDOK);
      },
      [&] { return layerWindows.canvasResizeDialog(canvas, &sides); });
  Report("Duplicate on Resized Canvas: a side, its amount held to 1000, Shrink",
         ok && sides.checked[kSideLeft] && sides.amount[kSideLeft] == 1000 &&
             sides.shrink[kSideTop] && !sides.checked[kSideTop]);
  SideChoice again;
  std::wstring shown;
  Run(
      "tsl_canvresize_again",
      [&](HWND d) {
        wchar_t text[16];
        GetDlgItemTextW(d, IDC_SIDE_AMOUNT + kSideLeft, text, 16);
        shown = text;
        Close(d, IDCANCEL);
      },
      [&] { return layerWindows.canvasResizeDialog(canvas, &again); });
  Report("Duplicate on Resized Canvas: the amounts stand at the next opening", shown == L"1000");

  ResizeChoice resize;
  std::wstring followed;
  ok = Run(
      "tsl_resize",
      [&](HWND d) {
        Type(d, IDC_RESIZE_WIDTH, L"32");
        wchar_t text[16];
        GetDlgItemTextW(d, IDC_RESIZE_HEIGHT, text, 16);
        followed = text;
        Close(d, IDOK);
      },
      [&] { return layerWindows.resizeDialog(canvas, &resize); });
  Report("Make Resized Duplicate: the height follows the width in proportion",
         ok && followed == L"24" && resize.width == 32 && resize.height == 24);
}

void CheckRotate(Canvas* canvas) {
  RotateChoice choice;  // no angle yet
  bool angleEnabled = true;
  const bool ok = Run(
      "tsl_rotate",
      [&](HWND d) {
        angleEnabled = IsWindowEnabled(GetDlgItem(d, IDC_ROTATE_ANGLE));
        Click(d, IDC_ROTATE_ARBITRARY);
        Type(d, IDC_ROTATE_ANGLE, L"30");
        SaveShot(d, "tsl_rotate_30");
        Close(d, IDOK);
      },
      [&] { return layerWindows.rotateDialog(canvas, &choice); });
  Report("Rotate: opens on 90 Degrees CW and takes an arbitrary angle",
         ok && !angleEnabled && choice.degrees == 30);
}

}  // namespace

int main(int argc, char** argv) {
  shotFolder = argc > 1 ? argv[1] : ".";
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  InstallLayerWindows();

  // A 64 x 48 canvas whose left half is red, so the preview shows a turn.
  RequestBlankCanvas(64, 48, 96);
  Canvas* canvas = new Canvas();
  if (CanvasManager.MakeCanvas(canvas, nullptr) != 1) {
    Report("a canvas to work on", false);
    return 1;
  }
  for (int y = 0; y < 48; ++y)
    for (int x = 0; x < 32; ++x)
      PlaneStore.WritePixel24(canvas->planes[0].plane, x, y, 220, 30, 30);

  CheckAddLayer(canvas);
  CheckLayerOptions(canvas);
  CheckPlanes(canvas);
  CheckMerges();
  CheckShadow();
  CheckSizes(canvas);
  CheckRotate(canvas);
  CanvasManager.FreeCanvasPlanes(canvas);
  delete canvas;
  return Finish("layer dialogs check");
}
