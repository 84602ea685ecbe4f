#include "paint/tip/stored_pen.h"

#include <cstdio>
#include <cstring>

#include "paint/control/control_page.h"
#include "paint/tip/pen_data_list.h"
#include "paint/tip/pen_record.h"
#include "paint/tip/tip.h"
#include "paint/tip/tip_panels.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "settings/side_path.h"

namespace {

constexpr const char* kRegisteredText = "Now registered to [%d]!";

std::string SlotPath(const std::string& programFolder, int slot) {
  char name[16];
  std::snprintf(name, sizeof name, "pen%02d", slot);
  return SidePath(programFolder, name);
}

bool ValidSlot(int slot) { return slot >= 1 && slot <= kStoredPenSlots; }

}  // namespace

int SavePen(const std::string& programFolder, int slot) {
  if (!ValidSlot(slot)) return 0;
  uint8_t bytes[kStoredPenBytes] = {};
  bytes[kStoredDotPenPanel] = uint8_t(tipState.dotPenPanel);
  bytes[kStoredTipShape] = uint8_t(pen.tipShape);
  bytes[kStoredDotFile] = uint8_t(PenDataList.fileInUse);
  bytes[kStoredDotFolder] = uint8_t(PenDataList.folderInUse);
  bytes[kStoredThickness] = uint8_t(pen.colorThickness);
  bytes[kStoredDensity] = uint8_t(pen.density);
  std::memcpy(bytes + kStoredRadiusX, &pen.radiusX, sizeof(double));
  std::memcpy(bytes + kStoredRadiusY, &pen.radiusY, sizeof(double));
  FILE* file = platform::OpenFile(SlotPath(programFolder, slot), "wb");
  if (!file) return 0;
  bool written = std::fwrite(bytes, 1, sizeof bytes, file) == sizeof bytes;
  return std::fclose(file) == 0 && written ? 1 : 0;
}

int LoadPen(const std::string& programFolder, int slot) {
  if (!ValidSlot(slot)) return 0;
  FILE* file = platform::OpenFile(SlotPath(programFolder, slot), "rb");
  if (!file) return 0;
  uint8_t bytes[kStoredPenBytes];
  bool whole = std::fread(bytes, 1, sizeof bytes, file) == sizeof bytes;
  std::fclose(file);
  if (!whole || bytes[kStoredTipShape] >= kTipShapeCount) return 0;

  double radiusX, radiusY;
  std::memcpy(&radiusX, bytes + kStoredRadiusX, sizeof(double));
  std::memcpy(&radiusY, bytes + kStoredRadiusY, sizeof(double));
  tipState.dotPenPanel = bytes[kStoredDotPenPanel] ? 1 : 0;
  pen.tipShape = bytes[kStoredTipShape];
  pen.colorThickness = bytes[kStoredThickness];
  pen.density = bytes[kStoredDensity];
  pen.radiusX = ClampTipRadius(radiusX);
  pen.radiusY = ClampTipRadius(radiusY);
  if (tipState.dotPenPanel && PenDataList.SelectFolder(bytes[kStoredDotFolder]))
    PenDataList.PickDotPen(bytes[kStoredDotFile]);
  OpenOptionPanel(tipState.dotPenPanel ? OptionPanel::Dot : OptionPanel::Brush);
  BuildTip();
  RepaintControlPanel();
  return 1;
}

int StoredPenKey(const std::string& programFolder, int slot, bool shiftHeld) {
  if (!shiftHeld) return LoadPen(programFolder, slot);
  if (!SavePen(programFolder, slot)) return 0;
  char text[64];
  std::snprintf(text, sizeof text, kRegisteredText, slot);
  platform::ShowMessageBox(platform::Window::Frame, text, kProductName, platform::MbOk);
  return 1;
}
