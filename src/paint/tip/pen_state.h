// The pen between runs: it comes from the settings record's tool state at
// start and goes back into it at exit.
#pragma once

// ResetPen, then the colour, mode, strengths, radii and tip shape from
// settings.toolState, each brought within its range. A blank tool state
// (no settings file was read) gives the first-run pen. The tip is not
// built: BuildTip follows.
void LoadPenState();

// The pen's colour, mode, strengths, radii and tip shape into
// settings.toolState; the rest of it is cleared.
void StorePenState();
