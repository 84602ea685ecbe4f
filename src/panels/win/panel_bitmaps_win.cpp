#include "panels/win/panel_bitmaps_win.h"

#include <map>
#include <string>

#include "platform/win32/win32_windows.h"

namespace {

// Kept for the run: a handful of tiny bitmaps.
HBITMAP Loaded(const wchar_t* name) {
  static std::map<std::wstring, HBITMAP> loaded;
  auto [at, added] = loaded.try_emplace(name, nullptr);
  if (added) at->second = LoadBitmapW(win32::ProgramInstance(), name);
  return at->second;
}

}  // namespace

void DrawPanelBitmap(HDC dc, const wchar_t* name, const RECT& box) {
  HBITMAP bitmap = Loaded(name);
  if (!bitmap) return;
  BITMAP size;
  GetObjectW(bitmap, sizeof size, &size);
  HDC memory = CreateCompatibleDC(dc);
  HGDIOBJ old = SelectObject(memory, bitmap);
  SetStretchBltMode(dc, COLORONCOLOR);
  StretchBlt(dc, box.left, box.top, box.right - box.left, box.bottom - box.top, memory, 0, 0,
             size.bmWidth, size.bmHeight, SRCCOPY);
  SelectObject(memory, old);
  DeleteDC(memory);
}
