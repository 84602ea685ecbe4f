#include "file/file_description.h"

#include "file/plugin_registry.h"
#include "file/read_image.h"
#include "platform/platform.h"
#include "resources/strings.h"

namespace {

constexpr int kStringSize = 20000;
constexpr int kStringLayers = 20001;
constexpr int kStringNoFile = 20002;
constexpr const char* kComicTool = "[コミックツール]";

int ColourText(int bits) {
  switch (bits) {
    case 1: return 19000;
    case 4: return 19001;
    case 8: return 19002;
    case 24: return 19003;
    default: return 19004;
  }
}

}  // namespace

FileDescription DescribeFile(const std::string& path) {
  if (platform::FileExists(path) && SameText(ExtensionOf(path), "mff"))
    return {kComicTool, kComicTool, false};
  FileSize size;
  if (platform::FileExists(path) && path.find('.') != std::string::npos && GetFileSize(path, 0, &size))
    return {FormatString(kStringSize, size.widths[0], size.heights[0], StringText(ColourText(size.bits[0]))),
            FormatString(kStringLayers, size.layers), true};
  return {StringText(kStringNoFile), StringText(kStringNoFile), false};
}
