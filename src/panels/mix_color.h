// The colour mixer as the rest of the program calls it: a colour in, the
// dialog, the colour out on OK. The Win32 side fills `mixerWindows` with
// the dialog; tests script it.
#pragma once

#include <functional>
#include <string>

#include "panels/mixer_color.h"

// What the dialog edits while it is open. The swatches it edits are the
// global words of swatches.h.
struct MixerSession {
  MixerColor color;
  const char* title = nullptr;  // null keeps the dialog's own caption
};

struct MixerWindows {
  // colorseldlg: true on OK with session->color chosen.
  std::function<bool(MixerSession* session)> colorMixerDialog;
};
extern MixerWindows mixerWindows;

// Reads "coldlg.dat" from folder, runs the dialog on the colour, and on OK
// gives the colour back and writes the file; on Cancel the colour and the
// file stay as they were (swatches changed on the screen are lost at the
// next read). True on OK; false on Cancel or without a dialog.
bool MixColor(const std::string& folder, int* red, int* green, int* blue, const char* title);
