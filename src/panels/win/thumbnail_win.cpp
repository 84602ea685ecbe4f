#include "panels/win/thumbnail_win.h"

#include <vector>

#include "document/active_canvas.h"
#include "panels/layer_rows.h"
#include "panels/thumbnail.h"
#include "panels/win/panel_bitmaps_win.h"
#include "panels/win/layer_panel_ids.h"
#include "platform/win32/win32_windows.h"

namespace {

constexpr wchar_t kThumbnailClass[] = L"LayPartsThmlClass";
constexpr COLORREF kActiveBox = RGB(255, 0, 0);

HANDLE worker = nullptr;

struct Job {
  HWND list, window;
  Canvas* canvas;
  int index;
};

// A plane's picture as a top-down device-independent bitmap; 8-bit planes
// as grey.
void DrawPlane(HDC dc, Plane* plane, int x, int y) {
  const int bits = plane->bits == 24 ? 24 : 8;
  const size_t stride = (size_t(plane->width) * (bits / 8) + 3) & ~size_t(3);
  std::vector<uint8_t> pixels(stride * plane->height);
  for (int row = 0; row < plane->height; ++row)
    PlaneStore.ReadRow(plane, row, 0, plane->width - 1, &pixels[stride * row]);
  struct {
    BITMAPINFOHEADER header;
    RGBQUAD greys[256];
  } info{};
  info.header.biSize = sizeof(BITMAPINFOHEADER);
  info.header.biWidth = plane->width;
  info.header.biHeight = -plane->height;  // top-down, as the plane's rows
  info.header.biPlanes = 1;
  info.header.biBitCount = WORD(bits);
  for (int i = 0; i < 256; ++i) info.greys[i] = {BYTE(i), BYTE(i), BYTE(i), 0};
  SetDIBitsToDevice(dc, x, y, DWORD(plane->width), DWORD(plane->height), 0, 0, 0,
                    UINT(plane->height), pixels.data(), reinterpret_cast<BITMAPINFO*>(&info),
                    DIB_RGB_COLORS);
}

void Frame(HDC dc, const RECT& r, COLORREF colour) {
  HBRUSH brush = CreateSolidBrush(colour);
  FrameRect(dc, &r, brush);
  DeleteObject(brush);
}

// The thumbnail, or the mark of the active plane, a plain box round the
// window and, on the active plane, a red one on top.
void DrawThumbnail(HDC dc, HWND window, const Canvas* canvas, int index) {
  RECT client;
  GetClientRect(window, &client);
  if (ShowsActiveMark(canvas, index)) {
    DrawPanelBitmap(dc, L"ly_actv", client);
    return;
  }
  FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
  const PlaneSlot& slot = canvas->planes[index];
  if (Plane* thumbnail = rowThumbnails[index]; thumbnail && slot.plane) {
    const ThumbnailFit fit =
        FitThumbnail(client.right, client.bottom, slot.plane->width, slot.plane->height);
    DrawPlane(dc, thumbnail, fit.x, fit.y);
  }
  Frame(dc, client, GetSysColor(COLOR_BTNSHADOW));
  if (index == canvas->activePlane) Frame(dc, client, kActiveBox);
}

// The row a thumbnail window stands in tells its plane.
int PlaneOfThumbnail(HWND window, const Canvas* canvas) {
  return RowOfWindow(GetParent(window), canvas);
}

DWORD WINAPI MakeOne(void* parameter) {
  const Job job = *static_cast<Job*>(parameter);
  delete static_cast<Job*>(parameter);
  RECT client;
  GetClientRect(job.window, &client);
  Plane* plane = job.canvas->planes[job.index].plane;
  if (!plane) {
    PostMessageW(job.list, kMsgRowGone, WPARAM(job.index), 0);
    return 0;
  }
  const ThumbnailFit fit = FitThumbnail(client.right, client.bottom, plane->width, plane->height);
  rowThumbnails[job.index] = MakeThumbnail(job.canvas, job.index, fit.width, fit.height);
  win32::WindowDc dc(job.window);
  if (dc.get()) DrawThumbnail(dc.get(), job.window, job.canvas, job.index);
  return 0;
}

bool WorkerRuns() {
  DWORD code = 0;
  return worker && GetExitCodeThread(worker, &code) && code == STILL_ACTIVE;
}

LRESULT CALLBACK ThumbnailProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT: {
      PAINTSTRUCT ps;
      HDC dc = BeginPaint(window, &ps);
      const Canvas* canvas = ActiveCanvas();
      const int index = canvas ? PlaneOfThumbnail(window, canvas) : -1;
      if (index >= 0) DrawThumbnail(dc, window, canvas, index);
      EndPaint(window, &ps);
      return 0;
    }
    // A press here is a press of the row.
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN: {
      POINT at{short(LOWORD(lParam)), short(HIWORD(lParam))};
      MapWindowPoints(window, GetParent(window), &at, 1);
      return SendMessageW(GetParent(window), message, wParam, MAKELPARAM(at.x, at.y));
    }
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

bool RegisterThumbnailClass() {
  return win32::RegisterWindowClass({kThumbnailClass, ThumbnailProc});
}

void ThumbnailTick(HWND list, Canvas* canvas) {
  if (WorkerRuns() || !canvas) return;
  StopThumbnailWorker();  // closes the handle of the one that ended
  const int index = NextThumbnailPlane(canvas);
  if (index < 0) return;
  HWND row = static_cast<HWND>(layerPanel.layerRows[index]);
  auto* job = new Job{list, GetDlgItem(row, IDC_ROW_THUMBNAIL), canvas, index};
  worker = CreateThread(nullptr, 0, MakeOne, job, 0, nullptr);
  if (!worker) delete job;
}

void StopThumbnailWorker() {
  if (!worker) return;
  while (WorkerRuns()) {
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
    Sleep(1);
  }
  CloseHandle(worker);
  worker = nullptr;
}
