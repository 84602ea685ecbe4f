// The Bezier path across documents and tools: the path file follows the
// focus of the canvas views, and Edit Bezier starts and ends with the
// tool.
#pragma once

#include <string>

// tempFolder, ending with a separator, holds the path files.
void InstallBezierPathTool(const std::string& tempFolder);
