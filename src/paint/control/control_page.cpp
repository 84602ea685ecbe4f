#include "paint/control/control_page.h"

#include "platform/platform.h"

bool ControlPageRefreshes(intptr_t wParam, intptr_t lParam) {
  if (wParam == 1) return lParam == kControlPageNumber;
  return wParam == 0 && (lParam == 0 || (lParam >> kControlPageNumber) & 1);
}

void RepaintControlPanel() {
  platform::SendToWindow(platform::Window::ControlPanel, platform::MsgPanelsRepaint, 0, 0);
}
