// Control numbers of the program's dialogs, shared by the resource scripts
// and the dialog procedures. Plain macros: the resource compiler reads
// this file too.
#pragma once

// tesel_new: the size of a new canvas.
#define IDC_NEW_WIDTH 101
#define IDC_NEW_HEIGHT 102
#define IDC_NEW_PIXEL_LIST 103
#define IDC_NEW_LENGTH_WIDTH 104
#define IDC_NEW_LENGTH_WIDTH_SPIN 105
#define IDC_NEW_LENGTH_HEIGHT 106
#define IDC_NEW_LENGTH_HEIGHT_SPIN 107
#define IDC_NEW_PAPER_LIST 108
#define IDC_NEW_MILLIMETRES 109
#define IDC_NEW_INCHES 110
#define IDC_NEW_DPI 111

// tesel_sizes: the list of canvas sizes that New offers.
#define IDC_SIZES_LIST 101
#define IDC_SIZES_WIDTH 102
#define IDC_SIZES_HEIGHT 103
#define IDC_SIZES_ADD 104
#define IDC_SIZES_DELETE 105

// da00_dispopt: which bars the frame shows.
#define IDC_DISP_TOOLBAR 101
#define IDC_DISP_STATUSBAR 102
#define IDC_DISP_CTRLPANEL 103

// tsl_about
#define IDC_ABOUT_VERSION 101

// tsl_env1 "Basic"
#define IDC_ENV_ICON_SETS 101
#define IDC_ENV_SMALL_ICONS 102
#define IDC_ENV_NOTATION_255 103
#define IDC_ENV_NOTATION_100 104
#define IDC_ENV_AUTO_ADJUST 105
#define IDC_ENV_AUTO_TONE 106
#define IDC_ENV_NO_CONNECT_AIRBRUSH 107
// tsl_env2 "Layer"
#define IDC_ENV_DISPLAY_ONE 111
#define IDC_ENV_DISPLAY_COMPOSITION 112
#define IDC_ENV_NO_THUMBNAIL_REDRAW 113
#define IDC_ENV_DOUBLE_ACCURACY 114
#define IDC_ENV_USE_MASK 115
#define IDC_ENV_USE_TRANSPARENCY 116
// tsl_env3 "Undo"
#define IDC_ENV_UNDO_COUNT 121
#define IDC_ENV_UNDO_SPIN 122
#define IDC_ENV_RESTRAIN_UNDO 123
// tsl_env4 "Advanced Setting"
#define IDC_ENV_USE_T_BUTTON 131
#define IDC_ENV_EDIT_ALPHA 132
// tsl_env5 "File"
#define IDC_ENV_NO_WARN_TSL 141
// tsl_env6 "Advanced Option"
#define IDC_ENV_SMOOTHING 151
#define IDC_ENV_SMOOTHING_SPIN 152
#define IDC_ENV_AA_FAST 153
#define IDC_ENV_AA_STANDARD 154
#define IDC_ENV_AA_QUALITY 155
// tsl_env7 "AdvancedOption2"
#define IDC_ENV_IMAGE_BUFFER 161
#define IDC_ENV_WORK_BUFFER 162
#define IDC_ENV_UNDO_BUFFER 163
