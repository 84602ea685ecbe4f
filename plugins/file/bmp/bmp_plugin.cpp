// The entry points of the "bmp" reader and writer, and the reading side
// that feeds the host's callbacks.
#include "bmp_plugin.h"

#include <cstdio>
#include <cstring>
#include <type_traits>

#include "bmp_format.h"
#include "plugin_abi/progress.h"

namespace bmp {
namespace {

// A picture without a resolution opens at the host's own default.
constexpr int32_t kDefaultDpi = 96;

// Rows to the host, with the progress of reading.
class HostSink final : public RowSink {
 public:
  HostSink(ReadCallbacks* callbacks, TeselWindow window, int width, int height)
      : callbacks_(callbacks), window_(window), width_(width), height_(height) {}

  bool Row(int y, const uint8_t* pixels, const uint8_t* alpha) override {
    callbacks_->PutRow(y, 0, width_ - 1, pixels, 0);
    // A host without the plane refuses it; the picture still loads.
    if (alpha) callbacks_->PutPlaneRow(y, 0, width_ - 1, alpha, 0, kTransparencyPlane);
    const int percent = int(int64_t{++rows_} * 100 / height_);
    if (percent != percent_)
      TeselReportProgress(window_, TESEL_PROGRESS_READING, percent_ = percent);
    return true;
  }

 private:
  ReadCallbacks* callbacks_;
  TeselWindow window_;
  int width_, height_;
  int rows_ = 0, percent_ = -1;
};

void Describe(FormatInfo* info, const char* extensions) {
  if (!info) return;
  std::snprintf(info->extensions, sizeof info->extensions, "%s", extensions);
  std::snprintf(info->description, sizeof info->description, "%s", "Windows Bitmap");
  info->accepts8 = 1;
  info->accepts24 = 1;
}

}  // namespace

int GetSize(ByteSource& source, FileHeader* header, LayerPlaneTable* planes) {
  Layout l;
  if (!header || !ReadLayout(source, &l)) return 0;
  header->layerCount = 1;
  header->layers[0].width = l.width;
  header->layers[0].height = l.height;
  header->layers[0].bits = l.RowBits();
  if (planes) {
    const bool alpha = HasAlpha(source, l);
    planes->present[kTransparencyPlane] = alpha;
    if (alpha) {
      std::snprintf(planes->names[kTransparencyPlane], TESEL_PLANE_NAME_BYTES, "%s", "0T");
      planes->flags[kTransparencyPlane] = 0x01000000;  // byte 3: a transparency plane
    }
  }
  return 1;
}

int ReadExec(ByteSource& source, TeselWindow window, FileHeader* header, LayerRecord* layers,
             ReadCallbacks* callbacks) {
  Layout l;
  if (!header || !callbacks || !callbacks->PutRow || !ReadLayout(source, &l)) return 0;
  // The host made its target from ReadFileGetSize; a file changed since
  // then would not fit it.
  const LayerGeometry& g = header->layers[0];
  if (g.width != l.width || g.height != l.height) return 0;
  if (l.fileBits <= 8) {
    if (!callbacks->SetPalette) return 0;
    callbacks->SetPalette(l.palette, 0);
  }
  const int32_t dpi = DpiFromPixelsPerMetre(l.pixelsPerMetre);
  header->dpiX = header->dpiY = dpi > 0 ? dpi : kDefaultDpi;
  header->activeLayer = 0;
  if (layers) TeselSingleLayerRecord(&layers[0]);
  const bool alpha = callbacks->PutPlaneRow && HasAlpha(source, l);
  HostSink sink(callbacks, window, l.width, l.height);
  const bool read = DecodeRows(source, l, alpha, sink);
  TeselReportProgress(window, TESEL_PROGRESS_CLEAR, 0);
  return read ? 1 : 0;
}

}  // namespace bmp

extern "C" {

int ReadFileInfo(TeselWindow, FormatInfo* info) {
  bmp::Describe(info, "bmp;dib");
  return 1;
}

int ReadFileGetSize(TeselWindow, const char* path, FileHeader* header, LayerPlaneTable* planes) {
  bmp::FileSource source(path);
  return source.opened() ? bmp::GetSize(source, header, planes) : 0;
}

int ReadFileExec(TeselWindow window, const char* path, FileHeader* header, LayerPlaneTable*,
                 LayerRecord* layers, ReadCallbacks* callbacks) {
  bmp::FileSource source(path);
  return source.opened() ? bmp::ReadExec(source, window, header, layers, callbacks) : 0;
}

int WriteFileInfo(TeselWindow, FormatInfo* info) {
  bmp::Describe(info, "bmp");
  return 1;
}

// No options to ask for.
int WriteFileInit(TeselWindow, const char*, int) { return 1; }

int WriteFileExec(TeselWindow window, const char* path, FileHeader* header, LayerPlaneTable*,
                  LayerRecord*, WriteCallbacks* callbacks) {
  return bmp::Write(window, path, header, callbacks);
}

}  // extern "C"

// The exports must match the boundary's types exactly.
static_assert(std::is_same_v<decltype(&ReadFileInfo), ReadFileInfoFn>);
static_assert(std::is_same_v<decltype(&ReadFileGetSize), ReadFileGetSizeFn>);
static_assert(std::is_same_v<decltype(&ReadFileExec), ReadFileExecFn>);
static_assert(std::is_same_v<decltype(&WriteFileInfo), WriteFileInfoFn>);
static_assert(std::is_same_v<decltype(&WriteFileInit), WriteFileInitFn>);
static_assert(std::is_same_v<decltype(&WriteFileExec), WriteFileExecFn>);
