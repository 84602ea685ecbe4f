// The tools that keep a path (the wire and Edit Bezier) join the
// selection, and leave it again for tests.
#pragma once

void InstallPathTools();
// No edge strength, no path folder, Edit Bezier not live.
void ResetPathTools();
