// The frame's dialogs.
#pragma once

#include <windows.h>

#include "document/new_canvas_size.h"

// Makes the frame commands of the dialogs below known to the routing:
// View Setting (11000) and Preference (11012).
void RegisterFrameDialogs();

// tesel_new: 1 after OK with the fields as accepted, 0 after Cancel.
int RunNewDialog(NewCanvasFields& fields);
// tesel_sizes: edits the list of canvas sizes that New offers.
void RunCanvasSizesDialog(HWND owner);
// da00_dispopt: which bars the frame shows.
void RunViewSettingDialog();
// The property sheet "Preference", whose pages write the live settings.
void ShowPreferences(HWND owner);
// da_screenchange
void ShowScreenChangeNotice();
// tsl_about
void ShowAboutBox();
