// The colour mixer, "colorseldlg": a hue and saturation wheel, a value bar,
// red, green and blue bars, the numbers of both forms, a preview and 20
// stored swatches.
#pragma once

#include <windows.h>

#include <string>

// Where "coldlg.dat" lives: the program folder, ending with a separator.
// The frame installs it at its creation.
void InstallColorMixer(const std::string& programFolder);

// Opens the mixer owned by `owner` on the colour, titled `title` (null:
// "Color Mixer"). On OK the colour comes back and the swatches are saved;
// true then, false on Cancel with the colour as it was.
bool MixColor(HWND owner, int* red, int* green, int* blue, const char* title);
