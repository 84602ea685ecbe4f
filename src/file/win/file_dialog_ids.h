// Control numbers of the file level's dialogs, shared by the resource
// script and the dialog code. Plain macros: the resource compiler reads
// this file too.
#pragma once

// tsl_save: the warning before a save in a format without layers.
#define IDC_SAVE_NO_WARNING 101
