// The shell level back to its start state, for tests.
#pragma once

// The routes and hooks, the tool state, the cascade, the file history, the
// window side and the key polling.
void ResetShell();
