// The display level back to its start state, for tests.
#pragma once

// No window side and no routes, overlays or dialogs plugged in; the row
// buffers of composition freed; no Smooth Zoom choice under way.
void ResetDisplay();
