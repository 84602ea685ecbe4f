// The writing side: one 24-bit layer to PNG, JPEG, TIFF or GIF by the path's
// extension; PNG and TIFF keep the transparency plane when it says anything.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <vector>

#include "plugin_abi/file_plugin.h"
#include "plugin_abi/progress.h"
#include "wic_common.h"

namespace wic {
namespace {

constexpr UINT kBand = 64;  // rows handed to the encoder at a time
constexpr float kJpegQuality = 0.9f;

enum class Kind { kNone, kPng, kJpeg, kTiff, kGif };

Kind KindOf(const char* path) {
  const char* dot = std::strrchr(path, '.');
  if (!dot || std::strpbrk(dot, "/\\")) return Kind::kNone;
  std::string ext(dot + 1);
  for (char& c : ext) c = char(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  if (ext == "png") return Kind::kPng;
  if (ext == "jpg" || ext == "jpeg" || ext == "jpe") return Kind::kJpeg;
  if (ext == "tif" || ext == "tiff") return Kind::kTiff;
  if (ext == "gif") return Kind::kGif;
  return Kind::kNone;
}

const GUID& ContainerOf(Kind kind) {
  switch (kind) {
    case Kind::kPng:
      return GUID_ContainerFormatPng;
    case Kind::kJpeg:
      return GUID_ContainerFormatJpeg;
    case Kind::kTiff:
      return GUID_ContainerFormatTiff;
    default:
      return GUID_ContainerFormatGif;
  }
}

// Every canvas has a transparency plane, mostly opaque; a fully opaque one
// adds nothing, and 24-bit files are what every reader takes.
bool AlphaMatters(WriteCallbacks* callbacks, int width, int height) {
  if (!callbacks->GetPlaneRow) return false;
  std::vector<uint8_t> row(static_cast<size_t>(width));
  for (int y = 0; y < height; ++y) {
    if (!callbacks->GetPlaneRow(y, 0, width - 1, row.data(), 0, kTransparencyPlane)) return false;
    if (std::any_of(row.begin(), row.end(), [](uint8_t a) { return a != 255; })) return true;
  }
  return false;
}

class Writer {
 public:
  Writer(TeselWindow window, WriteCallbacks* callbacks, int width, int height)
      : window_(window), callbacks_(callbacks), width_(width), height_(height) {}

  bool Write(const std::wstring& path, Kind kind, int32_t dpi) {
    if (!CreateFactory(&factory_) || FAILED(factory_->CreateStream(stream_.Out())) ||
        FAILED(stream_->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) ||
        FAILED(factory_->CreateEncoder(ContainerOf(kind), nullptr, encoder_.Out())) ||
        FAILED(encoder_->Initialize(stream_.get(), WICBitmapEncoderNoCache)))
      return false;
    Ptr<IWICBitmapFrameEncode> frame;
    Ptr<IPropertyBag2> options;
    if (FAILED(encoder_->CreateNewFrame(frame.Out(), options.Out()))) return false;
    if (kind == Kind::kJpeg && options) {
      // Real Windows honours it; Wine's encoder ignores it.
      PROPBAG2 name{};
      name.pstrName = const_cast<LPOLESTR>(L"ImageQuality");
      VARIANT value;
      VariantInit(&value);
      value.vt = VT_R4;
      value.fltVal = kJpegQuality;
      options->Write(1, &name, &value);
    }
    if (FAILED(frame->Initialize(options.get())) ||
        FAILED(frame->SetSize(UINT(width_), UINT(height_))) ||
        FAILED(frame->SetResolution(double(dpi), double(dpi))))
      return false;
    const bool alpha =
        (kind == Kind::kPng || kind == Kind::kTiff) && AlphaMatters(callbacks_, width_, height_);
    const bool written =
        kind == Kind::kGif ? WritePalette(frame.get()) : WriteRows(frame.get(), alpha);
    return written && SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder_->Commit());
  }

  // Closes the file, so that a failed one can be removed.
  void Close() {
    encoder_.Reset();
    stream_.Reset();
  }

 private:
  // One band of rows in 24bppBGR, or 32bppBGRA with the plane as alpha.
  bool Fill(int top, int rows, bool alpha, uint8_t* out) {
    const int last = width_ - 1;
    for (int r = 0; r < rows; ++r) {
      const int y = top + r;
      if (!alpha) {
        if (!callbacks_->GetRow(y, 0, last, out + size_t(r) * width_ * 3, 0)) return false;
        continue;
      }
      if (!callbacks_->GetRow(y, 0, last, colour_.data(), 0) ||
          !callbacks_->GetPlaneRow(y, 0, last, plane_.data(), 0, kTransparencyPlane))
        return false;
      uint8_t* p = out + size_t(r) * width_ * 4;
      for (int x = 0; x < width_; ++x, p += 4) {
        std::memcpy(p, &colour_[size_t(x) * 3], 3);
        p[3] = plane_[size_t(x)];
      }
    }
    return true;
  }

  void Progress(int done) {
    const int now = int(int64_t{done} * 100 / height_);
    if (now != percent_) TeselReportProgress(window_, TESEL_PROGRESS_SAVING, percent_ = now);
  }

  bool WriteRows(IWICBitmapFrameEncode* frame, bool alpha) {
    const WICPixelFormatGUID wanted =
        alpha ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat24bppBGR;
    WICPixelFormatGUID format = wanted;
    // The encoder may offer another format; the rows are made in this one only.
    if (FAILED(frame->SetPixelFormat(&format)) || !IsEqualGUID(format, wanted)) return false;
    const UINT stride = UINT(width_) * (alpha ? 4 : 3);
    std::vector<uint8_t> band(size_t(stride) * kBand);
    colour_.resize(size_t(width_) * 3);
    plane_.resize(size_t(width_));
    for (int top = 0; top < height_; top += int(kBand)) {
      const int rows = std::min(int(kBand), height_ - top);
      if (!Fill(top, rows, alpha, band.data()) ||
          FAILED(frame->WritePixels(UINT(rows), stride, stride * UINT(rows), band.data())))
        return false;
      Progress(top + rows);
    }
    return true;
  }

  // A picture of at most 256 colours keeps them exactly; the median cut of
  // WIC would average some of them.
  static HRESULT InitializePalette(IWICPalette* palette, IWICBitmap* bitmap,
                                   const std::vector<uint8_t>& pixels) {
    std::unordered_set<WICColor> colours;
    for (size_t i = 0; i + 2 < pixels.size() && colours.size() <= 256; i += 3)
      colours.insert(0xFF000000u | WICColor(pixels[i + 2]) << 16 | WICColor(pixels[i + 1]) << 8 |
                     pixels[i]);
    if (colours.size() > 256) return palette->InitializeFromBitmap(bitmap, 256, FALSE);
    std::vector<WICColor> entries(colours.begin(), colours.end());
    return palette->InitializeCustom(entries.data(), UINT(entries.size()));
  }

  // GIF holds a palette of its own: the whole picture goes to the encoder's
  // conversion, with a palette made from its colours.
  bool WritePalette(IWICBitmapFrameEncode* frame) {
    WICPixelFormatGUID format = GUID_WICPixelFormat8bppIndexed;
    if (FAILED(frame->SetPixelFormat(&format))) return false;
    const UINT stride = UINT(width_) * 3;
    std::vector<uint8_t> pixels(size_t(stride) * height_);
    for (int top = 0; top < height_; top += int(kBand)) {
      const int rows = std::min(int(kBand), height_ - top);
      if (!Fill(top, rows, false, pixels.data() + size_t(top) * stride)) return false;
      Progress(top + rows);
    }
    Ptr<IWICBitmap> bitmap;
    Ptr<IWICPalette> palette;
    Ptr<IWICFormatConverter> converter;
    return SUCCEEDED(factory_->CreateBitmapFromMemory(
               UINT(width_), UINT(height_), GUID_WICPixelFormat24bppBGR, stride,
               UINT(pixels.size()), pixels.data(), bitmap.Out())) &&
           SUCCEEDED(factory_->CreatePalette(palette.Out())) &&
           SUCCEEDED(InitializePalette(palette.get(), bitmap.get(), pixels)) &&
           SUCCEEDED(frame->SetPalette(palette.get())) &&
           SUCCEEDED(factory_->CreateFormatConverter(converter.Out())) &&
           SUCCEEDED(converter->Initialize(bitmap.get(), GUID_WICPixelFormat8bppIndexed,
                                           WICBitmapDitherTypeNone, palette.get(), 0.0,
                                           WICBitmapPaletteTypeCustom)) &&
           SUCCEEDED(frame->WriteSource(converter.get(), nullptr));
  }

  TeselWindow window_;
  WriteCallbacks* callbacks_;
  int width_, height_;
  int percent_ = -1;
  std::vector<uint8_t> colour_, plane_;
  Ptr<IWICImagingFactory> factory_;
  Ptr<IWICStream> stream_;
  Ptr<IWICBitmapEncoder> encoder_;
};

int WriteExec(TeselWindow window, const char* path, FileHeader* header, WriteCallbacks* callbacks) {
  if (!path || !header || !callbacks || !callbacks->GetRow || header->layerCount < 1) return 0;
  const LayerGeometry& g = header->layers[0];
  const Kind kind = KindOf(path);
  const std::wstring wide = Widen(path);
  if (kind == Kind::kNone || wide.empty() || g.bits != 24 || !SizeAllowed(g.width, g.height))
    return 0;
  ComScope com;
  if (!com.usable()) return 0;
  Writer writer(window, callbacks, g.width, g.height);
  const bool written = writer.Write(wide, kind, header->dpiX > 0 ? header->dpiX : kDefaultDpi);
  writer.Close();
  if (!written) DeleteFileW(wide.c_str());
  TeselReportProgress(window, TESEL_PROGRESS_CLEAR, 0);
  return written ? 1 : 0;
}

}  // namespace
}  // namespace wic

extern "C" {

int WriteFileInfo(TeselWindow, FormatInfo* info) {
  if (!info) return 0;
  std::snprintf(info->extensions, sizeof info->extensions, "%s", "png;jpg;tif;gif");
  std::snprintf(info->description, sizeof info->description, "%s", "Pictures (WIC)");
  info->accepts8 = 0;
  info->accepts24 = 1;
  return 1;
}

// No options to ask for.
int WriteFileInit(TeselWindow, const char*, int) { return 1; }

int WriteFileExec(TeselWindow window, const char* path, FileHeader* header, LayerPlaneTable*,
                  LayerRecord*, WriteCallbacks* callbacks) {
  return wic::WriteExec(window, path, header, callbacks);
}

}  // extern "C"

// The exports must match the boundary's types exactly.
static_assert(std::is_same_v<decltype(&WriteFileInfo), WriteFileInfoFn>);
static_assert(std::is_same_v<decltype(&WriteFileInit), WriteFileInitFn>);
static_assert(std::is_same_v<decltype(&WriteFileExec), WriteFileExecFn>);
