// What the option panels of the pen do, apart from drawing: which panel
// comes up, the shape buttons, the slider, sizing by dragging in the
// preview and the preview's shades.
#pragma once

#include <cstdint>

enum class OptionPanel { Brush, Dot, Text, Range };

constexpr int kSeedFillTool = 20007;  // has a panel of its own, "opt_range"
constexpr uint32_t kTipPreviewBackground = 0xB4B4B4;  // red, green, blue

// The panel for the option area: the range panel for seed fill; else Shift
// gives the text tip, a set dotPenPanel the dot pens, and otherwise the
// brush shapes.
OptionPanel ChooseOptionPanel(int tool, bool shiftHeld);
// The panel the option area shows when it opens now. The text panel waits
// for the text tool's renderer and the range panel for seed fill; until
// they come the brush panel stands in for both.
OptionPanel OptionAreaPanel(int tool, bool shiftHeld);
// Opening the dot or text panel makes dotTip the tip in use (the dot
// panel loads its file in use when there is no dot tip yet); the brush
// panel gives the generated tip back.
void OpenOptionPanel(OptionPanel panel);
// Button 103: from the brush panel to the dot pens and back; returns the
// panel opened.
OptionPanel SwitchTipPanel(OptionPanel current);

// Shape buttons 0..15: the shape, and the tip rebuilt. 0 for another number.
int PickTipShape(int shape);
// The bar under the preview, 0..255.
void SetTipSlider(int value);
// Dragging in the preview, dx and dy from its centre. The left button
// gives a round tip of |dx| (Shift: |dx| by |dy|), the right button the
// other way about. Each radius lies within 1..127. The caller rebuilds the
// tip on release.
void DragTipRadii(int dx, int dy, bool rightButton, bool shiftHeld);
// The preview's shade of a high tip byte: weak tips are drawn four times
// as dark.
uint8_t TipPreviewShade(uint8_t high);
