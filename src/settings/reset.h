// The settings level back to its start state, for tests.
#pragma once

// The settings record all zero, as before a file is read, and the number
// lists empty.
void ResetSettings();
