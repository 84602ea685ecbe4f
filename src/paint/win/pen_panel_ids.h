// Control numbers of the CONTROL page and of the pen's dialogs, shared by
// their script and their code. Plain macros: the resource compiler reads
// this file too. The numbers of opt_brush and opt_dot are those the panels
// have always had.
#pragma once

// da00_ctrl4: the CONTROL page.
#define IDC_MODE_BUTTON 300  // 300..306: modes 0..6
#define IDC_MODE_POPUP 310
#define IDC_THICK_SLIDER 311
#define IDC_THICK_VALUE 312
#define IDC_DENSITY_SLIDER 313
#define IDC_DENSITY_VALUE 314
#define IDC_OPTION_AREA 315
#define IDC_ANTI_ALIAS 320
#define IDC_AUTO_SMOOTH 321
#define IDC_SPEED_SLIDER 322
#define IDC_FASTEST 323
#define IDC_REFLECT_THICK 324
#define IDC_REFLECT_DENSITY 325
#define IDC_REFLECT_SIZE 326
#define IDC_COLOR_MASK 327
#define IDC_VAGUENESS_SLIDER 328
#define IDC_VAGUENESS_VALUE 329
#define IDC_SHAPE_FINISH 330
#define IDC_MASK_OUTSIDE 331

// opt_brush: shape buttons 0..15, then these.
#define IDC_TIP_PREVIEW 100
#define IDC_SIZE_POPUP 101
#define IDC_TIP_SLIDER 102
#define IDC_SWITCH_PANEL 103  // opt_dot too

// opt_dot: tiles 0..14, then these.
#define IDC_OPEN_DOT_FILE 104
#define IDC_NEXT_FOLDER 105
#define IDC_FOLDER_POPUP 106
#define IDC_TIP_SIZE 107
#define IDC_DOT_PAGE 108

// tsl_brushlist and tsl_addpen.
#define IDC_PEN_SIZE_LIST 101
#define IDC_PEN_SIZE_ADD 102
#define IDC_PEN_SIZE_DELETE 103
#define IDC_ADD_WIDTH 101
#define IDC_ADD_WIDTH_SPIN 102
#define IDC_ADD_HEIGHT 103
#define IDC_ADD_HEIGHT_SPIN 104

// The preview box's window class.
#define TIP_PREVIEW_CLASS L"tslTipPreview"
