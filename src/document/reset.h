// The document level back to its start state, for tests.
#pragma once

// The undo history empty, the canvas serials from 0, no canvas request and
// no memory of the New dialog.
void ResetDocument();
