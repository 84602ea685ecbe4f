#include "display/view_windows.h"

ViewWindows viewWindows;
