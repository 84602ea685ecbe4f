#include "paint/tip/tip_panels.h"

#include <algorithm>
#include <cstdlib>

#include "paint/control/dot_tiles.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"

OptionPanel ChooseOptionPanel(int tool, bool shiftHeld) {
  if (tool == kSeedFillTool) return OptionPanel::Range;
  if (shiftHeld) return OptionPanel::Text;
  return tipState.dotPenPanel ? OptionPanel::Dot : OptionPanel::Brush;
}

OptionPanel OptionAreaPanel(int tool, bool shiftHeld) {
  OptionPanel panel = ChooseOptionPanel(tool, shiftHeld);
  return panel == OptionPanel::Dot ? panel : OptionPanel::Brush;
}

void OpenOptionPanel(OptionPanel panel) {
  if (panel == OptionPanel::Dot || panel == OptionPanel::Text) tipState.dotTipActive = 1;
  if (panel == OptionPanel::Brush) tipState.dotTipActive = 0;
  if (panel == OptionPanel::Dot) OpenDotTiles();
}

OptionPanel SwitchTipPanel(OptionPanel current) {
  OptionPanel next = current == OptionPanel::Brush ? OptionPanel::Dot : OptionPanel::Brush;
  tipState.dotPenPanel = next == OptionPanel::Dot ? 1 : 0;
  OpenOptionPanel(next);
  return next;
}

int PickTipShape(int shape) {
  if (shape < 0 || shape >= kTipShapeCount) return 0;
  pen.tipShape = shape;
  return BuildTip();
}

void SetTipSlider(int value) { pen.tipSlider = std::clamp(value, 0, 255); }

void DragTipRadii(int dx, int dy, bool rightButton, bool shiftHeld) {
  auto radius = [](int d) { return double(std::clamp(std::abs(d), 1, int(kMaxTipRadius))); };
  // Left: round unless Shift; right: elliptic unless Shift.
  bool elliptic = rightButton != shiftHeld;
  pen.radiusX = radius(dx);
  pen.radiusY = radius(elliptic ? dy : dx);
}

uint8_t TipPreviewShade(uint8_t high) { return uint8_t(255 - std::min(255, 4 * high)); }
