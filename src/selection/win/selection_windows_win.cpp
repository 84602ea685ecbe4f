#include "selection/win/selection_windows_win.h"

#include "selection/selection_windows.h"

void InstallSelectionWindows() {}
