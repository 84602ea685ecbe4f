// The cursor `hand` of the hand scroll, drawn by the program itself.
#pragma once

// On: the hand shows until off gives the arrow back.
void ShowHandCursor(bool on);
