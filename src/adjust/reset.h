// The adjust level back to its start state, for tests.
#pragma once

// No windows, and the channel copy's choice as at program start.
void ResetAdjust();
