#include <windows.h>

#include "plugin_abi/progress.h"

void TeselReportProgress(void* window, int code, int percent) {
  if (window) SendMessageA((HWND)window, WM_USER, (WPARAM)code, (LPARAM)percent);
}
