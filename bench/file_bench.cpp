// Saving and opening a 4096 x 4096 canvas of 8 layers with transparency as
// a native file, through the host and the tsl plug-in, against libpng
// writing and reading the same layers as eight RGBA files at its default
// level. Two pictures: a photograph with grain under soft strokes, and a
// flat illustration under screen tones. The label gives the bytes on disk.
#include <benchmark/benchmark.h>
#include <png.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "file/install.h"
#include "file/native_file.h"
#include "file/write_canvas.h"
#include "settings/settings.h"

namespace {

namespace fs = std::filesystem;

constexpr int kSide = 4096;
constexpr int kLayers = 8;

// One layer as its planes hold it: blue, green, red rows and transparency.
struct Layer {
  std::vector<uint8_t> bgr, alpha;
};

std::vector<Layer> MakeLayers(bool photo) {
  std::mt19937 random(photo ? 1 : 2);
  std::vector<Layer> layers(kLayers);
  for (int i = 0; i < kLayers; ++i) {
    Layer& l = layers[size_t(i)];
    l.bgr.resize(size_t(kSide) * kSide * 3);
    l.alpha.assign(size_t(kSide) * kSide, i == 0 ? 255 : 0);
    for (int y = 0; y < kSide; ++y)
      for (int x = 0; x < kSide; ++x) {
        uint8_t* p = &l.bgr[(size_t(y) * kSide + x) * 3];
        if (i == 0) {
          const int grain = photo ? int(random() % 9) - 4 : 0;
          p[0] = uint8_t(std::clamp(x / 16 + grain, 0, 255));
          p[1] = uint8_t(std::clamp(y / 16 + grain, 0, 255));
          p[2] = uint8_t(std::clamp((x + y) / 32 + grain, 0, 255));
          continue;
        }
        // A band across the layer: soft strokes, or a dot screen.
        const int band = (y + i * 500) % kSide;
        if (band < 600) {
          const bool on = photo ? true : ((x / 4 + y / 4) % 2 == 0);
          l.alpha[size_t(y) * kSide + x] = photo ? uint8_t(255 - std::abs(band - 300) * 255 / 300) : on ? 255 : 0;
          p[0] = uint8_t(i * 30), p[1] = uint8_t(200 - i * 20), p[2] = uint8_t(x / 32);
        } else {
          p[0] = p[1] = p[2] = 255;
        }
      }
  }
  return layers;
}

const std::vector<Layer>& Layers(bool photo) {
  static const std::vector<Layer> photoLayers = MakeLayers(true);
  static const std::vector<Layer> flatLayers = MakeLayers(false);
  return photo ? photoLayers : flatLayers;
}

// A program folder with the native plug-in, and a canvas of the layers.
struct Scene {
  fs::path folder;
  std::unique_ptr<Canvas> canvas = std::make_unique<Canvas>();

  explicit Scene(bool photo) {
    folder = fs::temp_directory_path() / ("tesel-file-bench-" + std::to_string(photo));
    fs::remove_all(folder);
    for (const char* sub : {"file_r", "file_w"}) {
      fs::create_directories(folder / sub);
      fs::copy_file(std::string(TESEL_PLUGIN_DIR) + "/tsl.so", folder / sub / "tsl.so");
    }
    settings.imageBuffer = Physical;
    InstallFile(folder.string() + "/");
    RequestBlankCanvas(kSide, kSide, 96);
    CanvasManager.MakeCanvas(canvas.get(), nullptr);
    for (int i = 1; i < kLayers; ++i) CanvasManager.AddLayer(canvas.get(), 0, 0, kSide, kSide);
    const std::vector<Layer>& layers = Layers(photo);
    for (int i = 0; i < kLayers; ++i) {
      const PlaneSlot* slots = &canvas->planes[SlotIndex(i, 0)];
      for (int y = 0; y < kSide; ++y) {
        PlaneStore.WriteRow(slots[0].plane, y, 0, kSide - 1, &layers[size_t(i)].bgr[size_t(y) * kSide * 3]);
        PlaneStore.WriteRow(slots[2].plane, y, 0, kSide - 1, &layers[size_t(i)].alpha[size_t(y) * kSide]);
      }
    }
  }
  ~Scene() {
    CanvasManager.FreeCanvasPlanes(canvas.get());
    fs::remove_all(folder);
  }
  std::string Path() const { return (folder / "bench.tsl").string(); }
};

std::string Megabytes(uintmax_t bytes) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f MB", double(bytes) / 1e6);
  return text;
}

void TeselSave(benchmark::State& state, bool photo) {
  Scene scene(photo);
  for (auto _ : state) {
    int saved = 0;
    WriteCanvas(scene.canvas.get(), -1, 0, 0, 0, scene.Path(), 0, &saved);
    if (!saved) state.SkipWithError("the save failed");
  }
  state.SetLabel(Megabytes(fs::file_size(scene.Path())));
}

void TeselOpen(benchmark::State& state, bool photo) {
  Scene scene(photo);
  int saved = 0;
  WriteCanvas(scene.canvas.get(), -1, 0, 0, 0, scene.Path(), 0, &saved);
  for (auto _ : state) {
    Canvas opened;
    if (!OpenCanvasFile(scene.Path()) || !CanvasManager.MakeCanvas(&opened, nullptr)) {
      state.SkipWithError("the open failed");
      break;
    }
    CanvasManager.FreeCanvasPlanes(&opened);
  }
  state.SetLabel(Megabytes(fs::file_size(scene.Path())));
}

// The layers as RGBA pictures, which is what PNG keeps.
std::vector<std::vector<uint8_t>> RgbaLayers(bool photo) {
  std::vector<std::vector<uint8_t>> out;
  for (const Layer& l : Layers(photo)) {
    std::vector<uint8_t> rgba(size_t(kSide) * kSide * 4);
    for (size_t i = 0; i < size_t(kSide) * kSide; ++i)
      rgba[i * 4] = l.bgr[i * 3 + 2], rgba[i * 4 + 1] = l.bgr[i * 3 + 1], rgba[i * 4 + 2] = l.bgr[i * 3],
      rgba[i * 4 + 3] = l.alpha[i];
    out.push_back(std::move(rgba));
  }
  return out;
}

png_image PngImage() {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = kSide, image.height = kSide;
  image.format = PNG_FORMAT_RGBA;
  return image;
}

std::string PngPath(int i) { return (fs::temp_directory_path() / ("tesel-file-bench-" + std::to_string(i) + ".png")).string(); }

uintmax_t WritePngs(const std::vector<std::vector<uint8_t>>& layers) {
  uintmax_t bytes = 0;
  for (int i = 0; i < kLayers; ++i) {
    png_image image = PngImage();
    png_image_write_to_file(&image, PngPath(i).c_str(), 0, layers[size_t(i)].data(), 0, nullptr);
    bytes += fs::file_size(PngPath(i));
  }
  return bytes;
}

void PngSave(benchmark::State& state, bool photo) {
  const std::vector<std::vector<uint8_t>> layers = RgbaLayers(photo);
  uintmax_t bytes = 0;
  for (auto _ : state) bytes = WritePngs(layers);
  state.SetLabel(Megabytes(bytes));
}

void PngOpen(benchmark::State& state, bool photo) {
  const uintmax_t bytes = WritePngs(RgbaLayers(photo));
  std::vector<uint8_t> rgba(size_t(kSide) * kSide * 4);
  for (auto _ : state)
    for (int i = 0; i < kLayers; ++i) {
      png_image image{};
      image.version = PNG_IMAGE_VERSION;
      png_image_begin_read_from_file(&image, PngPath(i).c_str());
      image.format = PNG_FORMAT_RGBA;
      png_image_finish_read(&image, nullptr, rgba.data(), 0, nullptr);
    }
  state.SetLabel(Megabytes(bytes));
}

// Names pair each measure of ours with the peer's of the same last part.
const bool registered = [] {
  for (bool photo : {true, false}) {
    const std::string picture = photo ? "photo" : "flat";
    benchmark::RegisterBenchmark(("TeselFile/save-" + picture).c_str(), TeselSave, photo)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("PngFile/save-" + picture).c_str(), PngSave, photo)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("TeselFile/open-" + picture).c_str(), TeselOpen, photo)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("PngFile/open-" + picture).c_str(), PngOpen, photo)
        ->Unit(benchmark::kMillisecond);
  }
  return true;
}();

}  // namespace
