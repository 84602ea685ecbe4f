#include "settings/default_settings.h"

#include <cstring>

#include "settings/pen_tool_state.h"
#include "settings/word_halves.h"

void DefaultSettings(Settings& record) {
  std::memset(&record, 0, sizeof record);

  record.framePosition = Halves(40, 40);
  record.frameSize = Halves(1024, 768);
  record.statusBarOn = 1;
  record.toolBarOn = 1;
  record.ctrlPanelOn = 1;
  record.ctrlPanelPage = 3;  // the CONTROL page
  record.ditherOn = 1;
  record.displayPosition = 1;
  WritePenToolState(record, kDefaultPenToolState);

  record.selectionHistorySize = 20;
  record.defaultDisplay = 1;  // a new layer shows the composition
  record.autoAdjustWindow = 1;
  record.undoCount = 5;
  record.forcedOne364208 = 1;
  record.outsideDisplay = 2;  // darken what lies outside the selection
  record.penStrength = 128;   // the linear pressure curve

  record.backgroundRed = 255;
  record.backgroundGreen = 255;
  record.backgroundBlue = 255;
  record.filterPanelPosition = Halves(64, 96);
  record.settingsPanelPosition = Halves(96, 128);
  record.positionSmoothing = 3;
  record.antiAlias = 1;
  // New grids are drawn inverting by default; black gives the plain
  // inversion, which shows on any picture.
  record.gridRed = 0;
  record.gridGreen = 0;
  record.gridBlue = 0;

  // imageBuffer, undoBuffer and workBuffer stay 0: "Virtual".
  std::strcpy(record.iconSetName, "standard");
  record.size40to600 = 200;
  record.lastNewWidth = 640;
  record.lastNewHeight = 480;
}
