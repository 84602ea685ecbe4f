// The title splash tsl_title: 512 x 256, centred on the frame, gone after
// two seconds or at a click.
#pragma once

#include <windows.h>

void ShowTitleSplash(HWND frame, RECT frameRect);
