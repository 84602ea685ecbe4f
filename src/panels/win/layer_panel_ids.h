// Control numbers of the LAYER page, shared by its script and its code.
// Plain macros: the resource compiler reads this file too.
#pragma once

// da00_layer: one row of the list.
#define IDC_ROW_NAME 100
#define IDC_ROW_PRESS 101
#define IDC_ROW_DISPLAY 102
#define IDC_ROW_EYE 103
#define IDC_ROW_SWITCH 104
#define IDC_ROW_THUMBNAIL 200

// da00_ctrl3sub: the strip over the list.
#define IDC_STRIP_PLANE 100
#define IDC_STRIP_PLANE_POPUP 101
#define IDC_STRIP_EDIT 110
#define IDC_STRIP_PROTECT 113
#define IDC_STRIP_BACKGROUND 114
#define IDC_STRIP_SHOW_PLANES 115
