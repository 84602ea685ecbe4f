// What the reader and the writer tell the host about themselves.
#pragma once

#include <cstring>

#include "plugin_abi/file_plugin.h"

namespace tsl {

inline void FillFormatInfo(FormatInfo* info) {
  if (!info) return;
  std::memset(info, 0, sizeof *info);
  std::strcpy(info->extensions, "tsl");
  std::strcpy(info->description, "Tesel");
  info->accepts8 = 0;
  info->accepts24 = 1;
}

}  // namespace tsl
