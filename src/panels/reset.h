// The panels level back to its start state, for tests.
#pragma once

// The layer panel without rows, scrolling or thumbnails.
void ResetPanels();
