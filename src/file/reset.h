// The file level back to its start state, for tests.
#pragma once

// No plug-ins known, nothing opened, no file windows or hooks.
void ResetFile();
