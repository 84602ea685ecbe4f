// The Draft's cursors, drawn here: "posmove" over a peg, "move" over a
// shape's body, "posmove2" over a Bezier node or handle, "cross" for the
// tools that point at a pixel.
#pragma once

#include <windows.h>

#include <string>

// Null for a name it doesn't know.
HCURSOR DraftCursor(const std::string& name);
