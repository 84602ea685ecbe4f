// The selection level back to its start state, for tests.
#pragma once

// No windows, no tools, an empty path and no hooks.
void ResetSelection();
