// Control numbers of the colour mixer and the PALETTE page, shared by their
// script and their code. Plain macros: the resource compiler reads this
// file too.
#pragma once

// colorseldlg: the wheel, the value bar, the colour bars, the number
// fields (hue, saturation, value, red, green, blue) with their spins at
// field + 7, the preview and the swatches.
#define IDC_MIX_WHEEL 100
#define IDC_MIX_VALUE_BAR 101
#define IDC_MIX_RED_BAR 102
#define IDC_MIX_GREEN_BAR 103
#define IDC_MIX_BLUE_BAR 104
#define IDC_MIX_HUE 105
#define IDC_MIX_SATURATION 106
#define IDC_MIX_VALUE 107
#define IDC_MIX_RED 108
#define IDC_MIX_GREEN 109
#define IDC_MIX_BLUE 110
#define IDC_MIX_PREVIEW 111
#define IDC_MIX_HUE_SPIN 112
#define IDC_MIX_BLUE_SPIN 117
#define IDC_MIX_SWATCH 500  // 500..519

// pal_color: the hue and saturation box, the value bar, three colour bars,
// the combined colour with the model's popup, the preview.
#define IDC_PAL_HUE_BOX 100
#define IDC_PAL_VALUE_BAR 101
#define IDC_PAL_BAR 110  // 110..112
#define IDC_PAL_COMBINED 200
#define IDC_PAL_PREVIEW 300

// pal_page: where pal_color stands, the page tabs and the cells.
#define IDC_PAL_COLOR_AREA 400
#define IDC_PAL_TABS 401
#define IDC_PAL_CELLS 402
