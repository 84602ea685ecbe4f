#include "shell/win/frame_input.h"

#include "document/active_canvas.h"
#include "platform/win32/win32_platform.h"
#include "base/command_ids.h"
#include "shell/command_routing.h"
#include "shell/frame_layout.h"
#include "shell/input_rules.h"
#include "shell/win/dialogs.h"
#include "shell/win/shell_globals.h"
#include "shell/win/single_instance.h"

namespace {


bool KeyDown(int key) { return GetKeyState(key) < 0; }

void Scroll(const Canvas* canvas, UINT message, int code) {
  SendMessageW(static_cast<HWND>(canvas->frameWnd), message, static_cast<WPARAM>(code), 0);
}

// Whether the pointer stands over a window of the given role or inside it.
bool PointerOver(platform::Window role) {
  HWND target = platform::BoundWindow(role);
  if (!target) return false;
  POINT pointer;
  GetCursorPos(&pointer);
  HWND under = WindowFromPoint(pointer);
  return under == target || IsChild(target, under);
}

void Route(int command, const std::string& path) {
  RouteCommand(command, reinterpret_cast<intptr_t>(path.c_str()));
}

}  // namespace

void OnWheel(int delta) {
  const Canvas* canvas = ActiveCanvas();
  const WheelResult wheel = WheelRule(canvas != nullptr, KeyDown(VK_SHIFT), KeyDown(VK_CONTROL), delta);
  switch (wheel.action) {
    case WheelAction::None: return;
    case WheelAction::PageLeft: Scroll(canvas, WM_HSCROLL, SB_PAGELEFT); return;
    case WheelAction::PageRight: Scroll(canvas, WM_HSCROLL, SB_PAGERIGHT); return;
    case WheelAction::PageUp: Scroll(canvas, WM_VSCROLL, SB_PAGEUP); return;
    case WheelAction::PageDown: Scroll(canvas, WM_VSCROLL, SB_PAGEDOWN); return;
    case WheelAction::Command: RouteCommand(wheel.command, 0); return;
  }
}

// Over the layer panel the first file becomes a layer of the active
// picture; elsewhere each file opens, or with Ctrl is pasted into it.
void OnDropFiles(HDROP drop) {
  DropBlock block;
  if (!ReadDrop(drop, block) || block.names.empty()) return;
  const bool canvas = ActiveCanvas() != nullptr;
  if (canvas && PointerOver(platform::Window::LayerPanel)) {
    Route(cmd::kPasteFromFileAsLayer, block.names.front());
    return;
  }
  const bool paste = canvas && KeyDown(VK_CONTROL);
  for (const std::string& name : block.names) Route(paste ? cmd::kPasteFromFile : cmd::kOpenPath, name);
}

void OnDisplayChange(int width, int height, int bits) {
  if (DisplayDiffers(width, height, bits, screenWidth, screenHeight, screenBits))
    ShowScreenChangeNotice();
}
