// The base level back to its start state, for tests.
#pragma once

// The tool at start and no command handlers registered.
void ResetBase();
