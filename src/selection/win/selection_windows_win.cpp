#include "selection/win/selection_windows_win.h"

#include "selection/selection_windows.h"
#include "selection/win/detect_selection_win.h"

void InstallSelectionWindows() { InstallDetectSelectionWindow(); }
