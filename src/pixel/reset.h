// The pixel level back to its start state, for tests.
#pragma once

// The vector forms of the kernels in use where the processor has them.
void ResetPixel();
