// The preview box of the brush panel (control 100): the tip in use on
// grey, and sizing by dragging in it.
#pragma once

#include <windows.h>

// Its notification to the panel, by WM_COMMAND: the pen's radii changed.
constexpr WORD kPreviewSized = 1;

bool RegisterTipPreviewClass();
