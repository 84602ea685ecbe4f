// tsl_brushlist, the list of pen sizes behind the size popup's "Edit...",
// and tsl_addpen, which its Add button opens. Changes go to the live list,
// which is saved at exit.
#pragma once

#include <windows.h>

void RunPenSizeListDialog(HWND owner);
