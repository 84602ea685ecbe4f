// The store level back to its start state, for tests.
#pragma once

// The store's counter and scratch; planes made before stay valid.
void ResetStore();
