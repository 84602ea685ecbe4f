#include "shell/frame_layout.h"

#include <algorithm>

FrameLayout LayOutFrame(const FrameLayoutInput& in) {
  FrameLayout out{};
  const int statusHeight = in.statusBarOn ? kStatusBarHeight : 0;
  const int toolHeight = in.toolBarOn ? in.buttonHeight + kToolBarExtra : 0;
  const int panelWidth = in.ctrlPanelOn ? kCtrlPanelWidth : 0;
  const int panelX = in.panelOnLeft ? 0 : in.clientWidth - panelWidth;
  // A docked page makes the panel a full-height column beside everything;
  // otherwise it is a strip in the corner beside the tool bar.
  const bool column = in.ctrlPanelOn && in.panelPageDocked;
  const int stripHeight = in.ctrlPanelOn && !column ? kCtrlPanelStripHeight : 0;
  if (in.ctrlPanelOn)
    out.ctrlPanel = Rect::OfSize(panelX, 0, panelWidth,
                                 column ? in.clientHeight - statusHeight : kCtrlPanelStripHeight);
  const int besidePanelX = in.panelOnLeft ? panelWidth : 0;
  if (in.toolBarOn)
    out.toolBar = Rect::OfSize(besidePanelX, 0, in.clientWidth - panelWidth, toolHeight);
  if (in.statusBarOn)
    out.statusBar = Rect::OfSize(0, in.clientHeight - statusHeight, in.clientWidth, statusHeight);
  const int top = std::max(toolHeight, stripHeight);
  const int columnWidth = column ? panelWidth : 0;
  out.mdiClient = Rect::OfSize(column ? besidePanelX : 0, top, in.clientWidth - columnWidth,
                               std::max(0, in.clientHeight - top - statusHeight));
  return out;
}

bool DisplayDiffers(int width, int height, int depth, int startWidth, int startHeight,
                    int startDepth) {
  auto same = [](int bits) { return bits == 15 ? 16 : bits; };
  return width != startWidth || height != startHeight || same(depth) != same(startDepth);
}
