// The WIC file plug-in through its entry points, as the host calls them,
// under Wine or on Windows: a picture written to each format and read back.
// One line per check; exit code 1 when any failed.
// Usage: wic_plugin_check [wic.dll]   (default ..\..\dist\file_r\wic.dll)
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "check_report.h"
#include "plugin_abi/file_plugin.h"

namespace {

// A picture as the host holds it: B,G,R pixels and the transparency plane.
struct Picture {
  Picture() = default;
  Picture(int w, int h) : width(w), height(h) {}
  int width = 0, height = 0;
  std::vector<uint8_t> bgr, alpha;
  bool hasAlpha = false;
  int dpi = 0;
};

// The callbacks carry no context: the picture being written or read.
const Picture* source = nullptr;
Picture* target = nullptr;

int GetRow(int y, int x0, int x1, uint8_t* buffer, int) {
  std::memcpy(buffer, &source->bgr[(size_t(y) * source->width + x0) * 3], size_t(x1 - x0 + 1) * 3);
  return 1;
}
int GetPlaneRow(int y, int x0, int x1, uint8_t* buffer, int layer, int plane) {
  if (!source->hasAlpha || layer != 0 || plane != 1) return 0;
  std::memcpy(buffer, &source->alpha[size_t(y) * source->width + x0], size_t(x1 - x0 + 1));
  return 1;
}
int PutRow(int y, int x0, int x1, const uint8_t* buffer, int) {
  std::memcpy(&target->bgr[(size_t(y) * target->width + x0) * 3], buffer, size_t(x1 - x0 + 1) * 3);
  return 0;
}
int PutPlaneRow(int y, int x0, int x1, const uint8_t* buffer, int layer, int plane) {
  if (layer != 0 || plane != 1) return -1;
  target->hasAlpha = true;
  std::memcpy(&target->alpha[size_t(y) * target->width + x0], buffer, size_t(x1 - x0 + 1));
  return 0;
}

struct Plugin {
  ReadFileInfoFn readInfo;
  ReadFileGetSizeFn getSize;
  ReadFileExecFn readExec;
  WriteFileInfoFn writeInfo;
  WriteFileInitFn writeInit;
  WriteFileExecFn writeExec;
};

template <class Fn>
void Find(HMODULE module, const char* name, Fn* fn) {
  *fn = reinterpret_cast<Fn>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

bool Write(const Plugin& p, const std::string& path, const Picture& picture) {
  auto header = std::make_unique<FileHeader>();
  auto planes = std::make_unique<LayerPlaneTable>();
  auto layers = std::make_unique<LayerRecord[]>(TESEL_LAYER_CAPACITY);
  header->dpiX = header->dpiY = picture.dpi;
  header->layerCount = 1;
  header->layers[0] = LayerGeometry{picture.width, picture.height, 24, 1, 255, 255, 255, {}};
  WriteCallbacks callbacks{GetRow, GetPlaneRow, nullptr};
  source = &picture;
  return p.writeInit(nullptr, path.c_str(), 0) == 1 &&
         p.writeExec(nullptr, path.c_str(), header.get(), planes.get(), layers.get(), &callbacks) ==
             1;
}

// What ReadFileGetSize said of the plane, then the picture; false when
// either entry point refused.
bool Read(const Plugin& p, const std::string& path, Picture* picture, bool* planeDeclared) {
  auto header = std::make_unique<FileHeader>();
  auto planes = std::make_unique<LayerPlaneTable>();
  auto layers = std::make_unique<LayerRecord[]>(TESEL_LAYER_CAPACITY);
  if (p.getSize(nullptr, path.c_str(), header.get(), planes.get()) != 1) return false;
  const LayerGeometry& g = header->layers[0];
  *planeDeclared = planes->present[1] == 1 && std::string(planes->names[1]) == "0T" &&
                   planes->flags[1] == 0x01000000;
  if (header->layerCount != 1 || g.bits != 24) return false;
  *picture = Picture{g.width, g.height};
  picture->bgr.assign(size_t(g.width) * g.height * 3, 0);
  picture->alpha.assign(size_t(g.width) * g.height, 0);
  ReadCallbacks callbacks{PutRow, PutPlaneRow, nullptr, nullptr};
  target = picture;
  if (p.readExec(nullptr, path.c_str(), header.get(), planes.get(), layers.get(), &callbacks) != 1)
    return false;
  picture->dpi = header->dpiX;
  return true;
}

// Smooth colours, odd sides (rows not a multiple of four bytes), and alpha
// from clear to opaque.
Picture Gradient(int width, int height) {
  Picture p{width, height};
  p.hasAlpha = true;
  p.dpi = 300;
  p.bgr.resize(size_t(width) * height * 3);
  p.alpha.resize(size_t(width) * height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const size_t i = size_t(y) * width + x;
      p.bgr[i * 3 + 0] = uint8_t(x * 255 / (width - 1));
      p.bgr[i * 3 + 1] = uint8_t(y * 255 / (height - 1));
      p.bgr[i * 3 + 2] = uint8_t(128 + (x - y) / 2);
      p.alpha[i] = uint8_t((x + y * 3) * 255 / (width - 1 + (height - 1) * 3));
    }
  return p;
}

// Four flat colours in blocks: what a palette format keeps exactly.
Picture FewColours(int width, int height) {
  static const uint8_t colours[4][3] = {{0, 0, 255}, {0, 200, 0}, {255, 0, 0}, {40, 90, 160}};
  Picture p{width, height};
  p.dpi = 96;
  p.bgr.resize(size_t(width) * height * 3);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      std::memcpy(&p.bgr[(size_t(y) * width + x) * 3], colours[(x / 8 + y / 8) % 4], 3);
  return p;
}

// The largest difference of any channel, and the mean one.
void Compare(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b, int* most,
             double* mean) {
  *most = a.size() == b.size() ? 0 : 256;
  double sum = 0;
  for (size_t i = 0; i < a.size() && i < b.size(); ++i) {
    const int d = std::abs(int(a[i]) - int(b[i]));
    sum += d;
    if (d > *most) *most = d;
  }
  *mean = a.empty() ? 0 : sum / double(a.size());
}

std::string SizeText(const Picture& p) {
  return std::to_string(p.width) + "x" + std::to_string(p.height);
}

void CheckInfo(const Plugin& p) {
  FormatInfo read{}, write{};
  const bool described = p.readInfo(nullptr, &read) == 1 && p.writeInfo(nullptr, &write) == 1;
  const std::string list = std::string(";") + read.extensions + ";";
  Report("reader lists png, jpg, tif and gif, and leaves bmp and tsl to our own",
         described && list.find(";png;") != std::string::npos &&
             list.find(";jpg;") != std::string::npos && list.find(";tiff;") != std::string::npos &&
             list.find(";gif;") != std::string::npos && list.find(";bmp;") == std::string::npos &&
             list.find(";tsl;") == std::string::npos &&
             std::string(read.description) == "Pictures (WIC)",
         read.extensions);
  Report("writer takes 24 bits only, as png, jpg, tif and gif",
         std::string(write.extensions) == "png;jpg;tif;gif" && write.accepts24 == 1 &&
             write.accepts8 == 0,
         write.extensions);
}

void CheckLossless(const Plugin& p, const std::string& folder) {
  const Picture original = Gradient(37, 23);
  for (const char* ext : {"png", "tif"}) {
    const std::string path = folder + "\\round." + ext;
    Picture back;
    bool plane = false;
    const bool done = Write(p, path, original) && Read(p, path, &back, &plane);
    Report(std::string(ext) + ": pixels, alpha and resolution come back as written",
           done && plane && back.width == original.width && back.height == original.height &&
               back.bgr == original.bgr && back.alpha == original.alpha && back.dpi == 300,
           done ? SizeText(back) + " at " + std::to_string(back.dpi) + " dpi" : "refused");
  }
  // An opaque plane is not written: the file has no alpha to declare.
  Picture opaque = original;
  opaque.alpha.assign(opaque.alpha.size(), 255);
  Picture back;
  bool plane = true;
  const std::string path = folder + "\\opaque.png";
  const bool done = Write(p, path, opaque) && Read(p, path, &back, &plane);
  Report("png: an opaque picture reads back without a transparency plane",
         done && !plane && !back.hasAlpha && back.bgr == opaque.bgr);
}

void CheckLossy(const Plugin& p, const std::string& folder) {
  const Picture original = Gradient(64, 48);
  Picture back;
  bool plane = true;
  const std::string path = folder + "\\round.jpg";
  const bool done = Write(p, path, original) && Read(p, path, &back, &plane);
  int most = 0;
  double mean = 0;
  Compare(original.bgr, back.bgr, &most, &mean);
  Report("jpg: size kept, pixels close, no alpha",
         done && !plane && back.width == 64 && back.height == 48 && mean < 4 && most < 48,
         "mean " + std::to_string(mean) + ", most " + std::to_string(most));

  const Picture flat = FewColours(41, 29);
  const std::string gif = folder + "\\few.gif";
  const bool gifDone = Write(p, gif, flat) && Read(p, gif, &back, &plane);
  Report("gif: a picture of few colours comes back exactly",
         gifDone && back.width == 41 && back.height == 29 && back.bgr == flat.bgr,
         gifDone ? SizeText(back) : "refused");
  // Beyond 256 colours the palette is made by the codec: only close.
  const std::string many = folder + "\\many.gif";
  const bool manyDone = Write(p, many, original) && Read(p, many, &back, &plane);
  Compare(original.bgr, back.bgr, &most, &mean);
  Report("gif: a picture of many colours comes back close",
         manyDone && back.width == 64 && back.height == 48 && mean < 16,
         "mean " + std::to_string(mean) + ", most " + std::to_string(most));
}

void CheckRefusals(const Plugin& p, const std::string& folder) {
  const Picture original = Gradient(40, 30);
  const std::string whole = folder + "\\whole.png", cut = folder + "\\cut.png";
  bool cutRefused = false;
  if (Write(p, whole, original)) {
    FILE* in = std::fopen(whole.c_str(), "rb");
    std::vector<uint8_t> bytes(1 << 16);
    const size_t n = in ? std::fread(bytes.data(), 1, bytes.size(), in) : 0;
    if (in) std::fclose(in);
    FILE* out = std::fopen(cut.c_str(), "wb");
    if (out) {
      std::fwrite(bytes.data(), 1, n / 2, out);
      std::fclose(out);
    }
    Picture back;
    bool plane = false;
    cutRefused = n > 100 && !Read(p, cut, &back, &plane);
  }
  Report("a truncated png is refused", cutRefused);

  const std::string text = folder + "\\text.png";
  if (FILE* out = std::fopen(text.c_str(), "wb")) {
    std::fputs("not a picture", out);
    std::fclose(out);
  }
  Picture back;
  bool plane = false;
  Report("a file that is no picture is refused, as is a missing one",
         !Read(p, text, &back, &plane) && !Read(p, folder + "\\missing.png", &back, &plane));

  const std::string unknown = folder + "\\picture.xyz";
  Report("an unknown extension is not written, and leaves no file",
         !Write(p, unknown, original) &&
             GetFileAttributesA(unknown.c_str()) == INVALID_FILE_ATTRIBUTES);
}

}  // namespace

int main(int argc, char** argv) {
  std::string dll;
  if (argc > 1) {
    dll = argv[1];
  } else {
    char self[MAX_PATH];
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    dll = self;
    dll = dll.substr(0, dll.find_last_of('\\')) + "\\..\\..\\dist\\file_r\\wic.dll";
  }
  HMODULE module = LoadLibraryA(dll.c_str());
  Report("the plug-in loads", module != nullptr, dll);
  if (!module) return 1;
  Plugin p{};
  Find(module, "ReadFileInfo", &p.readInfo);
  Find(module, "ReadFileGetSize", &p.getSize);
  Find(module, "ReadFileExec", &p.readExec);
  Find(module, "WriteFileInfo", &p.writeInfo);
  Find(module, "WriteFileInit", &p.writeInit);
  Find(module, "WriteFileExec", &p.writeExec);
  const bool exported =
      p.readInfo && p.getSize && p.readExec && p.writeInfo && p.writeInit && p.writeExec;
  Report("it exports the six entry points", exported);
  if (!exported) return 1;

  char temp[MAX_PATH];
  GetTempPathA(MAX_PATH, temp);
  std::string folder = std::string(temp) + "wic_plugin_check";
  CreateDirectoryA(folder.c_str(), nullptr);

  CheckInfo(p);
  CheckLossless(p, folder);
  CheckLossy(p, folder);
  CheckRefusals(p, folder);

  return Finish("wic plug-in check");
}
