// The numbers of saturation, value and colours as the user reads and types
// them: 0..255, or 0..100 when settings.numberNotation is 1.
#pragma once

// v as shown: v, or v x 100 / 255 truncated.
int ToNotation(int v);
// What is typed, back to 0..255 terms: v, or v x 255 / 100 truncated.
int FromNotation(int v);
// The largest number shown: 255 or 100.
int NotationTop();
