// Control numbers of the file level's dialogs, shared by the resource
// script and the dialog code. Plain macros: the resource compiler reads
// this file too.
#pragma once

// tsl_save: the warning before a save in a format without layers.
#define IDC_SAVE_NO_WARNING 101

// ts_fopenhook: below the Open dialog, what the selected file is.
#define IDC_HOOK_PREVIEW_BUTTON 100
#define IDC_HOOK_CATALOG 101
#define IDC_HOOK_PREVIEW 103
#define IDC_HOOK_SIZE 104
#define IDC_HOOK_LAYERS 105
