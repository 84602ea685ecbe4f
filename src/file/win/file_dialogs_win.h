// The file level's dialogs on Windows: the system's Open and Save dialogs
// with the plug-ins' filters, and the warning before a flat save.
#pragma once

// Fills fileWindows.
void InstallFileWindows();
