#include "shell/win/message_loop.h"

#include "layers/win/layer_resize_win.h"
#include "selection/win/detect_selection_win.h"
#include "shell/win/shell_globals.h"

// The open modeless dialogs' keys, the MDI keys, then the program's accelerators, then the rest.
int RunMessageLoop() {
  MSG msg{};
  while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
    if (LayerResizeDialogMessage(&msg)) continue;
    if (DetectSelectionDialogMessage(&msg)) continue;
    if (TranslateMDISysAccel(mdiClient, &msg)) continue;
    if (TranslateAcceleratorW(frameWnd, accelerators, &msg)) continue;
    TranslateMessage(&msg);
    DispatchMessageW(&msg);
  }
  return static_cast<int>(msg.wParam);
}
