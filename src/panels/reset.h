// The panels level back to its start state, for tests.
#pragma once

// The layer panel without rows, scrolling or thumbnails; no mixer dialog,
// the swatches cleared.
void ResetPanels();
