#include "file/install.h"

#include "document/canvas_content.h"
#include "document/canvas_request.h"
#include "file/native_file.h"
#include "file/plugin_registry.h"

void InstallFile(const std::string& programFolder) {
  FileFormatRegistry.Scan(programFolder);
  SetCanvasContentFill(kModeOpen, ReadCanvasFile);
}
