#include "panels/mix_color.h"

#include "panels/swatches.h"

MixerWindows mixerWindows;

bool MixColor(const std::string& folder, int* red, int* green, int* blue, const char* title) {
  ReadSwatches(folder);
  if (!mixerWindows.colorMixerDialog) return false;
  MixerSession session;
  session.title = title;
  SetFromRgb(&session.color, *red, *green, *blue);
  if (!mixerWindows.colorMixerDialog(&session)) return false;
  *red = session.color.red;
  *green = session.color.green;
  *blue = session.color.blue;
  WriteSwatches(folder);
  return true;
}
