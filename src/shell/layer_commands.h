// The layer commands that make a new document (merges into a new canvas,
// the duplicates) or reach the shell's windows.
#pragma once

void InstallLayerCommands();
