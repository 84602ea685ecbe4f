// Where the frame's children stand, and the display facts checked at start
// and at WM_DISPLAYCHANGE. The Win32 frame calls LayOutFrame on WM_SIZE and
// moves the four windows to the rectangles it returns.
#pragma once

#include "shell/frame_geometry.h"

constexpr int kCtrlPanelWidth = 180;
constexpr int kCtrlPanelStripHeight = 32;  // the panel without a docked page
constexpr int kStatusBarHeight = 20;
constexpr int kToolBarExtra = 3;  // over the button height

struct FrameLayoutInput {
  int clientWidth, clientHeight;
  bool toolBarOn, statusBarOn, ctrlPanelOn;
  bool panelOnLeft;      // settings.ctrlPanelSide not 0
  bool panelPageDocked;  // a page stands in the panel: full height
  int buttonHeight;      // of the tool bar's buttons
};

struct FrameLayout {
  Rect ctrlPanel, toolBar, statusBar, mdiClient;  // empty: hidden
};

FrameLayout LayOutFrame(const FrameLayoutInput& in);

// The colour depth (bits per plane x planes) the program needs.
constexpr int kMinColourDepth = 9;
// Whether a display change differs from the facts at start; a depth of 15
// counts as 16.
bool DisplayDiffers(int width, int height, int depth, int startWidth, int startHeight,
                    int startDepth);
