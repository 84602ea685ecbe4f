// The paint level back to its start state, for tests.
#pragma once

// The pen, its modes and tips, the stroke engine, the pen data list and
// what the windows and the tablet plugged in.
void ResetPaint();
