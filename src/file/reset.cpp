#include "file/reset.h"

#include "file/native_file.h"
#include "file/plugin_registry.h"
#include "file/read_image.h"
#include "file/file_windows.h"

void ResetFile() {
  FileFormatRegistry.Reset();
  ResetReadImage();
  ResetNativeFile();
  fileWindows = {};
}
