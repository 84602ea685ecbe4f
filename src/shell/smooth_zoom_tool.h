// The tool Smooth Zoom (20507) within the frame: the tool change starts
// its frame; the command ends a Smooth Zoom in force; closing a picture
// ends either; and when the frame's choice is over, the tool in use before
// comes back.
#pragma once

#include <string>

// The frame calls this once, at its creation, with the temporary folder
// (ending in a separator), where the unscaled planes are parked.
void InstallSmoothZoomTool(const std::string& tempFolder);
