// The layer level back to its start state, for tests.
#pragma once

// No window side, no resize session, the sides and flags as at start.
void ResetLayers();
