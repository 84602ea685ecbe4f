// Detect Selection: a modeless dialog that picks pixels by colour. Three
// bars hold, per channel, which values are picked; a press on the canvas
// while it is open samples colours into them; Execute writes the pixels of
// the active layer whose three channels are all picked (or, with "Other
// than", those that aren't) to the selection or to a plane of the layer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "document/canvas.h"

constexpr int kPickRows = 6;  // 0..2 the channels in use; 3..5 kept in step, unread
constexpr int kPickBars = 3;

// 1 = picked. Survives between openings in one run.
extern uint8_t pickTable[kPickRows][256];
extern int32_t pickTableFresh;  // 1 until the dialog first opens
extern int32_t pickIsHsv;       // 0 RGB, 1 HSV
extern int32_t pickCondition;   // 0 "Same as", 1 "Other than"
extern int32_t pickTarget;      // 0 selection, 1 mask, 2..7 a plane of the layer by position
extern int32_t pickDisplayed;   // 1 "by Displayed Colors"
extern Canvas* pickCanvas;
extern WindowHandle pickDialog;  // non-null while open
extern int32_t pickOldPlane;

constexpr uint32_t kPickedColour = 65535;       // yellow
constexpr uint32_t kUnpickedColour = 0x800000;  // dark
// The bars' scale: 0x00BBGGRR of value i of bar `bar`.
uint32_t PickScaleColour(int bar, int i, int hsv);

// Command 21025: opens the dialog on the canvas, one at a time; the active
// plane goes to the layer's image plane.
void OpenDetectSelection(Canvas* canvas);

// A plane the output can go to: its name in the combo and its pickTarget.
struct PickTargetItem {
  std::string name;
  int target;
};
// "Selection", "Mask", then each plane of the layer from position 2 up.
std::vector<PickTargetItem> PickTargets(Canvas* canvas);

// The controls.
void PickColumn(int bar, int x, int pick);  // x clamped to 0..255
void SetPickChannels(int hsv);
void SetPickTarget(int target);  // the active plane follows, so the target shows
void InitializePicks();
void ReversePicks();
void TogglePickDisplayed();

// Execute: 1 when it ran.
int ExecutePick();
// OK: the history entry (for the selection) and the undo step, then closes.
void ConfirmDetectSelection();
// Cancel: the active plane back, the view repainted, the dialog gone.
void CloseDetectSelection();
// The canvas is going away: the dialog closes without touching it.
void DetectSelectionCanvasGoing(Canvas* canvas);

// A press on a canvas while the dialog is open: samples until release
// (the primary button picks, the secondary unpicks). 1 when it took it.
int SampleForDetectSelection(Canvas* canvas, int rightButton);
