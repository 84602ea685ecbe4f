// The hand-over of file names from a second start to the running frame.
#pragma once

#include <windows.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "shell/drop_files.h"

// Posts the names to the running frame as a drop (message 563) at the
// pointer's position.
void HandOverFiles(HWND runningFrame, const std::vector<std::string>& files);

// Reads and releases the block of a WM_DROPFILES, whether the system or a
// second start made it. false when it can't be read.
bool ReadDrop(HDROP drop, DropBlock& block);
