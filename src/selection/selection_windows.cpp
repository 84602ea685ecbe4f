#include "selection/selection_windows.h"

SelectionWindows selectionWindows;
