// The settings record: read whole from "env__.env" at start, written whole
// at exit. Its layout is a file format, so every field sits at a fixed
// offset (checked below) and all fields but the palette area and the
// strings are 32-bit little-endian words.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr size_t kSettingsBytes = 366192;
constexpr size_t kPaletteAreaBytes = 363488;
constexpr int kToolButtonWords = 102;
constexpr int kTransientPaths = 2;
constexpr size_t kTransientPathChars = 256;
constexpr size_t kTransientPathsOffset = kSettingsBytes - kTransientPaths * kTransientPathChars;

struct PanelPlace {
  int32_t words[6];
};

struct Settings {
  int32_t maximized;
  int32_t framePosition;  // low half x, high half y
  int32_t frameSize;      // low half width, high half height
  int32_t statusBarOn;
  int32_t toolBarOn;
  int32_t ctrlPanelOn;
  int32_t ditherOn;
  int32_t displayPosition;
  int32_t ctrlPanelSide;
  int32_t toolState[78];
  int32_t reserved348;
  int32_t colorState[16];
  int32_t reserved416;
  PanelPlace panelStates[10];
  uint8_t paletteArea[kPaletteAreaBytes];
  int32_t showPlanes;   // the layer panel shows every plane, not only images
  int32_t palettePage;  // the palette page shown; 3 is the gradient page
  int32_t colorModel;   // what the palette's colour bars show
  int32_t selectionHistorySize;
  int32_t numberNotation;
  int32_t defaultDisplay;
  int32_t autoAdjustWindow;
  int32_t ctrlPanelPage;  // the control panel's page shown, by its number
  int32_t noThumbnailRedraw;
  int32_t doubleAccuracyDefault;
  int32_t autoInitToneFilter;
  int32_t noConnectAirbrush;
  int32_t undoCount;
  int32_t restrainUndoDuringFreehand;
  int32_t reserved364204;
  int32_t forcedOne364208;
  int32_t forcedZero364212;
  int32_t outsideDisplay;
  int32_t toolButtonOff[kToolButtonWords];
  int32_t noMaskPlane;
  int32_t noTransparencyPlane;
  int32_t penStrength;  // the tablet's "Strength of Penstroke", 16..200
  int32_t reserved364640[3];
  int32_t darkenOutsideBoundary;
  int32_t forcedZero364656;
  int32_t noWarnNotTsl;
  int32_t backgroundRed;
  int32_t backgroundGreen;
  int32_t backgroundBlue;
  int32_t filterPanelOpen;
  int32_t filterPanelPosition;
  int32_t settingsPanelOpen;
  int32_t settingsPanelPosition;
  int32_t lastPenColorSlot;
  int32_t positionSmoothing;
  int32_t antiAlias;
  int32_t gridRed;
  int32_t gridGreen;
  int32_t gridBlue;
  int32_t smallIcons;
  int32_t reserved364720;
  int32_t imageBuffer;
  int32_t undoBuffer;
  int32_t workBuffer;
  char iconSetName[388];
  int32_t size40to600;  // a size, kept within 40..600 at start
  int32_t lastNewWidth;
  int32_t lastNewHeight;
  uint8_t reserved365136[kTransientPathsOffset - 365136];
  // Paths that matter for one run only; cleared at every start.
  char transientPaths[kTransientPaths][kTransientPathChars];
};

// The live record.
extern Settings settings;

static_assert(sizeof(Settings) == kSettingsBytes);
static_assert(offsetof(Settings, maximized) == 0);
static_assert(offsetof(Settings, framePosition) == 4);
static_assert(offsetof(Settings, frameSize) == 8);
static_assert(offsetof(Settings, statusBarOn) == 12);
static_assert(offsetof(Settings, toolBarOn) == 16);
static_assert(offsetof(Settings, ctrlPanelOn) == 20);
static_assert(offsetof(Settings, ditherOn) == 24);
static_assert(offsetof(Settings, displayPosition) == 28);
static_assert(offsetof(Settings, ctrlPanelSide) == 32);
static_assert(offsetof(Settings, toolState) == 36);
static_assert(offsetof(Settings, reserved348) == 348);
static_assert(offsetof(Settings, colorState) == 352);
static_assert(offsetof(Settings, reserved416) == 416);
static_assert(offsetof(Settings, panelStates) == 420);
static_assert(offsetof(Settings, paletteArea) == 660);
static_assert(offsetof(Settings, showPlanes) == 364148);
static_assert(offsetof(Settings, palettePage) == 364152);
static_assert(offsetof(Settings, colorModel) == 364156);
static_assert(offsetof(Settings, selectionHistorySize) == 364160);
static_assert(offsetof(Settings, numberNotation) == 364164);
static_assert(offsetof(Settings, defaultDisplay) == 364168);
static_assert(offsetof(Settings, autoAdjustWindow) == 364172);
static_assert(offsetof(Settings, ctrlPanelPage) == 364176);
static_assert(offsetof(Settings, noThumbnailRedraw) == 364180);
static_assert(offsetof(Settings, doubleAccuracyDefault) == 364184);
static_assert(offsetof(Settings, autoInitToneFilter) == 364188);
static_assert(offsetof(Settings, noConnectAirbrush) == 364192);
static_assert(offsetof(Settings, undoCount) == 364196);
static_assert(offsetof(Settings, restrainUndoDuringFreehand) == 364200);
static_assert(offsetof(Settings, reserved364204) == 364204);
static_assert(offsetof(Settings, forcedOne364208) == 364208);
static_assert(offsetof(Settings, forcedZero364212) == 364212);
static_assert(offsetof(Settings, outsideDisplay) == 364216);
static_assert(offsetof(Settings, toolButtonOff) == 364220);
static_assert(offsetof(Settings, noMaskPlane) == 364628);
static_assert(offsetof(Settings, noTransparencyPlane) == 364632);
static_assert(offsetof(Settings, penStrength) == 364636);
static_assert(offsetof(Settings, reserved364640) == 364640);
static_assert(offsetof(Settings, darkenOutsideBoundary) == 364652);
static_assert(offsetof(Settings, forcedZero364656) == 364656);
static_assert(offsetof(Settings, noWarnNotTsl) == 364660);
static_assert(offsetof(Settings, backgroundRed) == 364664);
static_assert(offsetof(Settings, backgroundGreen) == 364668);
static_assert(offsetof(Settings, backgroundBlue) == 364672);
static_assert(offsetof(Settings, filterPanelOpen) == 364676);
static_assert(offsetof(Settings, filterPanelPosition) == 364680);
static_assert(offsetof(Settings, settingsPanelOpen) == 364684);
static_assert(offsetof(Settings, settingsPanelPosition) == 364688);
static_assert(offsetof(Settings, lastPenColorSlot) == 364692);
static_assert(offsetof(Settings, positionSmoothing) == 364696);
static_assert(offsetof(Settings, antiAlias) == 364700);
static_assert(offsetof(Settings, gridRed) == 364704);
static_assert(offsetof(Settings, gridGreen) == 364708);
static_assert(offsetof(Settings, gridBlue) == 364712);
static_assert(offsetof(Settings, smallIcons) == 364716);
static_assert(offsetof(Settings, reserved364720) == 364720);
static_assert(offsetof(Settings, imageBuffer) == 364724);
static_assert(offsetof(Settings, undoBuffer) == 364728);
static_assert(offsetof(Settings, workBuffer) == 364732);
static_assert(offsetof(Settings, iconSetName) == 364736);
static_assert(offsetof(Settings, size40to600) == 365124);
static_assert(offsetof(Settings, lastNewWidth) == 365128);
static_assert(offsetof(Settings, lastNewHeight) == 365132);
static_assert(offsetof(Settings, reserved365136) == 365136);
static_assert(offsetof(Settings, transientPaths) == 365680);
