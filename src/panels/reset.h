// The panels level back to its start state, for tests.
#pragma once

// No mixer dialog, the swatches cleared.
void ResetPanels();
