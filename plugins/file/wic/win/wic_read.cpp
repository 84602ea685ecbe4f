// The reading side: the first frame of whatever a WIC decoder opens, as one
// 24-bit layer and, when the pixel format carries alpha, the transparency
// plane.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "plugin_abi/file_plugin.h"
#include "plugin_abi/progress.h"
#include "wic_common.h"

namespace wic {
namespace {

// Our own plug-ins read these; the extensions field is 255 characters.
constexpr const char* kOwnExtensions[] = {"bmp", "dib", "tsl"};
constexpr const char* kBaseExtensions = "png;jpg;jpeg;jpe;tif;tiff;gif";
// Rows converted at a time: a few, so memory stays small whatever the picture.
constexpr UINT kBand = 64;

bool ListHas(const std::string& list, const std::string& ext) {
  size_t start = 0;
  while (start <= list.size()) {
    const size_t end = std::min(list.find(';', start), list.size());
    if (list.compare(start, end - start, ext) == 0) return true;
    start = end + 1;
  }
  return false;
}

// Adds ".ext1,.ext2" of one decoder, lowercase and without dots.
void AddExtensions(const std::wstring& wide, std::string* list, size_t capacity) {
  std::string ext;
  auto flush = [&] {
    const bool own = std::any_of(std::begin(kOwnExtensions), std::end(kOwnExtensions),
                                 [&](const char* e) { return ext == e; });
    if (!ext.empty() && !own && !ListHas(*list, ext) && list->size() + 1 + ext.size() <= capacity)
      *list += ";" + ext;
    ext.clear();
  };
  for (wchar_t c : wide) {
    if (c == L',' || c == L';' || c == L' ') {
      flush();
    } else if (c != L'.' && c != L'*') {
      // Extensions are ASCII; anything else would not survive the field.
      if (c > 127) return;
      ext += char(c >= L'A' && c <= L'Z' ? c - L'A' + L'a' : c);
    }
  }
  flush();
}

void AddInstalledDecoders(IWICImagingFactory* factory, std::string* list, size_t capacity) {
  Ptr<IEnumUnknown> components;
  if (FAILED(factory->CreateComponentEnumerator(WICDecoder, WICComponentEnumerateDefault,
                                                components.Out())))
    return;
  for (;;) {
    Ptr<IUnknown> unknown;
    ULONG fetched = 0;
    if (components->Next(1, unknown.Out(), &fetched) != S_OK || fetched != 1) break;
    Ptr<IWICBitmapCodecInfo> codec;
    if (FAILED(unknown->QueryInterface(IID_IWICBitmapCodecInfo,
                                       reinterpret_cast<void**>(codec.Out()))))
      continue;
    UINT length = 0;
    if (FAILED(codec->GetFileExtensions(0, nullptr, &length)) || length == 0) continue;
    std::wstring wide(length, L'\0');
    if (FAILED(codec->GetFileExtensions(length, wide.data(), &length))) continue;
    wide.resize(wcsnlen(wide.c_str(), wide.size()));
    AddExtensions(wide, list, capacity);
  }
}

// Whether the frame's pixels carry alpha: a palette format by its palette's
// entries, others by what the format says of itself.
bool HasAlpha(IWICImagingFactory* factory, IWICBitmapFrameDecode* frame) {
  WICPixelFormatGUID format;
  if (FAILED(frame->GetPixelFormat(&format))) return false;
  if (IsEqualGUID(format, GUID_WICPixelFormat1bppIndexed) ||
      IsEqualGUID(format, GUID_WICPixelFormat2bppIndexed) ||
      IsEqualGUID(format, GUID_WICPixelFormat4bppIndexed) ||
      IsEqualGUID(format, GUID_WICPixelFormat8bppIndexed)) {
    Ptr<IWICPalette> palette;
    BOOL alpha = FALSE;
    return SUCCEEDED(factory->CreatePalette(palette.Out())) &&
           SUCCEEDED(frame->CopyPalette(palette.get())) && SUCCEEDED(palette->HasAlpha(&alpha)) &&
           alpha;
  }
  Ptr<IWICComponentInfo> info;
  Ptr<IWICPixelFormatInfo2> pixel;
  BOOL alpha = FALSE;
  if (SUCCEEDED(factory->CreateComponentInfo(format, info.Out())) &&
      SUCCEEDED(
          info->QueryInterface(IID_IWICPixelFormatInfo2, reinterpret_cast<void**>(pixel.Out()))) &&
      SUCCEEDED(pixel->SupportsTransparency(&alpha)))
    return alpha != FALSE;
  // Without that interface, the common formats with alpha by name.
  for (const GUID& g :
       {GUID_WICPixelFormat32bppBGRA, GUID_WICPixelFormat32bppRGBA, GUID_WICPixelFormat32bppPBGRA,
        GUID_WICPixelFormat32bppPRGBA, GUID_WICPixelFormat64bppRGBA, GUID_WICPixelFormat64bppPRGBA})
    if (IsEqualGUID(format, g)) return true;
  return false;
}

// The decoder's first frame, checked against the limits.
struct Frame {
  Ptr<IWICImagingFactory> factory;
  Ptr<IWICBitmapDecoder> decoder;
  Ptr<IWICBitmapFrameDecode> frame;
  UINT width = 0, height = 0;

  bool Open(const char* path) {
    const std::wstring wide = Widen(path);
    if (wide.empty() || !CreateFactory(&factory)) return false;
    return SUCCEEDED(factory->CreateDecoderFromFilename(wide.c_str(), nullptr, GENERIC_READ,
                                                        WICDecodeMetadataCacheOnDemand,
                                                        decoder.Out())) &&
           SUCCEEDED(decoder->GetFrame(0, frame.Out())) &&
           SUCCEEDED(frame->GetSize(&width, &height)) && SizeAllowed(width, height);
  }
};

void DescribeReader(FormatInfo* info) {
  std::string list = kBaseExtensions;
  const size_t capacity = sizeof info->extensions - 1;
  ComScope com;
  Ptr<IWICImagingFactory> factory;
  if (com.usable() && CreateFactory(&factory)) AddInstalledDecoders(factory.get(), &list, capacity);
  std::snprintf(info->extensions, sizeof info->extensions, "%s", list.c_str());
  std::snprintf(info->description, sizeof info->description, "%s", "Pictures (WIC)");
}

int GetSize(const char* path, FileHeader* header, LayerPlaneTable* planes) {
  ComScope com;
  Frame f;
  if (!header || !com.usable() || !f.Open(path)) return 0;
  header->layerCount = 1;
  header->layers[0].width = int32_t(f.width);
  header->layers[0].height = int32_t(f.height);
  header->layers[0].bits = 24;
  if (planes && HasAlpha(f.factory.get(), f.frame.get())) {
    planes->present[kTransparencyPlane] = 1;
    std::snprintf(planes->names[kTransparencyPlane], TESEL_PLANE_NAME_BYTES, "%s", "0T");
    planes->flags[kTransparencyPlane] = 0x01000000;  // byte 3: a transparency plane
  }
  return 1;
}

bool DeliverRows(Frame& f, TeselWindow window, bool alpha, ReadCallbacks* callbacks) {
  Ptr<IWICFormatConverter> converter;
  if (FAILED(f.factory->CreateFormatConverter(converter.Out())) ||
      FAILED(converter->Initialize(f.frame.get(), GUID_WICPixelFormat32bppBGRA,
                                   WICBitmapDitherTypeNone, nullptr, 0.0,
                                   WICBitmapPaletteTypeCustom)))
    return false;
  const UINT stride = f.width * 4;
  std::vector<uint8_t> band(size_t(stride) * kBand);
  std::vector<uint8_t> colour(size_t(f.width) * 3), plane(f.width);
  const int last = int(f.width) - 1;
  int percent = -1;
  for (UINT top = 0; top < f.height; top += kBand) {
    const UINT rows = std::min(kBand, f.height - top);
    const WICRect rect{0, INT(top), INT(f.width), INT(rows)};
    if (FAILED(converter->CopyPixels(&rect, stride, stride * rows, band.data()))) return false;
    for (UINT r = 0; r < rows; ++r) {
      const uint8_t* p = band.data() + size_t(r) * stride;
      for (UINT x = 0; x < f.width; ++x, p += 4) {
        std::memcpy(&colour[size_t(x) * 3], p, 3);
        plane[x] = p[3];
      }
      const int y = int(top + r);
      callbacks->PutRow(y, 0, last, colour.data(), 0);
      // A host without the plane refuses it; the picture still loads.
      if (alpha) callbacks->PutPlaneRow(y, 0, last, plane.data(), 0, kTransparencyPlane);
    }
    const int now = int(int64_t{top + rows} * 100 / f.height);
    if (now != percent) TeselReportProgress(window, TESEL_PROGRESS_READING, percent = now);
  }
  return true;
}

int ReadExec(TeselWindow window, const char* path, FileHeader* header, LayerRecord* layers,
             ReadCallbacks* callbacks) {
  ComScope com;
  Frame f;
  if (!header || !callbacks || !callbacks->PutRow || !com.usable() || !f.Open(path)) return 0;
  // The host made its target from ReadFileGetSize; a file changed since then
  // would not fit it.
  if (header->layers[0].width != int32_t(f.width) || header->layers[0].height != int32_t(f.height))
    return 0;
  double dpiX = 0, dpiY = 0;
  f.frame->GetResolution(&dpiX, &dpiY);
  header->dpiX = header->dpiY = DpiFrom(dpiX);
  header->activeLayer = 0;
  if (layers) TeselSingleLayerRecord(&layers[0]);
  const bool alpha = callbacks->PutPlaneRow && HasAlpha(f.factory.get(), f.frame.get());
  const bool read = DeliverRows(f, window, alpha, callbacks);
  TeselReportProgress(window, TESEL_PROGRESS_CLEAR, 0);
  return read ? 1 : 0;
}

}  // namespace
}  // namespace wic

extern "C" {

int ReadFileInfo(TeselWindow, FormatInfo* info) {
  if (!info) return 0;
  wic::DescribeReader(info);
  return 1;
}

int ReadFileGetSize(TeselWindow, const char* path, FileHeader* header, LayerPlaneTable* planes) {
  return wic::GetSize(path, header, planes);
}

int ReadFileExec(TeselWindow window, const char* path, FileHeader* header, LayerPlaneTable*,
                 LayerRecord* layers, ReadCallbacks* callbacks) {
  return wic::ReadExec(window, path, header, layers, callbacks);
}

}  // extern "C"

// The exports must match the boundary's types exactly.
static_assert(std::is_same_v<decltype(&ReadFileInfo), ReadFileInfoFn>);
static_assert(std::is_same_v<decltype(&ReadFileGetSize), ReadFileGetSizeFn>);
static_assert(std::is_same_v<decltype(&ReadFileExec), ReadFileExecFn>);
