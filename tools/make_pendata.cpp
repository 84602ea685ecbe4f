// Writes the shipped dot pen families: make_pendata <pendata folder>.
// Each family is a folder of 24-bit BMP files, dark ink on white, drawn
// here from simple procedural shapes so that nothing binary is kept in the
// source tree.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr double kPi = 3.14159265358979323846;

// Ink of one pixel, 0 (white) to 255 (black), from its coordinates.
using InkFn = std::function<int(double x, double y)>;

struct Picture {
  int width, height;
  std::vector<uint8_t> ink;  // row 0 the top
};

Picture Draw(int width, int height, const InkFn& ink) {
  Picture picture{width, height, std::vector<uint8_t>(size_t(width) * height)};
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      int v = ink(x - (width - 1) / 2.0, y - (height - 1) / 2.0);
      picture.ink[size_t(y) * width + x] = uint8_t(v < 0 ? 0 : v > 255 ? 255 : v);
    }
  return picture;
}

// A fixed grain in 0..1 per pixel and seed, the same on every build.
double Grain(double x, double y, uint32_t seed) {
  uint32_t h = uint32_t(int32_t(x * 2)) * 73856093u ^ uint32_t(int32_t(y * 2)) * 19349663u ^
               seed * 83492791u;
  h ^= h >> 13;
  h *= 0x5bd1e995u;
  h ^= h >> 15;
  return (h & 0xffff) / 65535.0;
}

void Put16(std::vector<uint8_t>& out, uint32_t v) {
  out.push_back(uint8_t(v));
  out.push_back(uint8_t(v >> 8));
}
void Put32(std::vector<uint8_t>& out, uint32_t v) {
  Put16(out, v & 0xffff);
  Put16(out, v >> 16);
}

bool WriteBmp(const std::filesystem::path& path, const Picture& picture) {
  uint32_t stride = (uint32_t(picture.width) * 3 + 3) / 4 * 4;
  uint32_t pixelBytes = stride * picture.height;
  std::vector<uint8_t> out;
  out.push_back('B');
  out.push_back('M');
  Put32(out, 54 + pixelBytes);
  Put32(out, 0);
  Put32(out, 54);
  Put32(out, 40);
  Put32(out, picture.width);
  Put32(out, picture.height);
  Put16(out, 1);
  Put16(out, 24);
  for (int i = 0; i < 6; ++i) Put32(out, 0);
  for (int y = picture.height - 1; y >= 0; --y) {
    for (int x = 0; x < picture.width; ++x) {
      uint8_t grey = uint8_t(255 - picture.ink[size_t(y) * picture.width + x]);
      out.insert(out.end(), {grey, grey, grey});
    }
    out.resize(out.size() + stride - picture.width * 3, 0);
  }
  FILE* file = std::fopen(path.string().c_str(), "wb");
  if (!file) return false;
  bool written = std::fwrite(out.data(), 1, out.size(), file) == out.size();
  return std::fclose(file) == 0 && written;
}

// Chalk: a grainy ellipse, dense in the middle and breaking up at the rim.
InkFn Chalk(double rx, double ry, uint32_t seed) {
  return [=](double x, double y) {
    double t = (x * x) / (rx * rx) + (y * y) / (ry * ry);
    if (t >= 1) return 0;
    double grain = Grain(x, y, seed);
    return grain < (1 - t * t) * 0.9 ? int(150 + 105 * grain) : 0;
  };
}

// Dots: small discs at the given places.
InkFn Dots(std::vector<std::pair<double, double>> centres, double radius) {
  return [=](double x, double y) {
    for (auto [cx, cy] : centres) {
      double d = std::hypot(x - cx, y - cy);
      if (d < radius) return 255;
      if (d < radius + 1) return int(255 * (radius + 1 - d));
    }
    return 0;
  };
}

std::vector<std::pair<double, double>> Ring(int count, double radius) {
  std::vector<std::pair<double, double>> centres;
  for (int i = 0; i < count; ++i)
    centres.emplace_back(radius * std::cos(2 * kPi * i / count),
                         radius * std::sin(2 * kPi * i / count));
  return centres;
}

std::vector<std::pair<double, double>> Scatter(int count, double spread, uint32_t seed) {
  std::vector<std::pair<double, double>> centres;
  for (int i = 0; i < count; ++i)
    centres.emplace_back((Grain(i, 1, seed) * 2 - 1) * spread,
                         (Grain(i, 2, seed) * 2 - 1) * spread);
  return centres;
}

// Leaf: a pointed blade of the given length along the angle, with a pale
// middle vein.
InkFn Leaf(double length, double degrees) {
  double a = degrees * kPi / 180;
  return [=](double x, double y) {
    double u = (x * std::cos(a) + y * std::sin(a)) / (length / 2);
    double v = -x * std::sin(a) + y * std::cos(a);
    if (u <= -1 || u >= 1) return 0;
    double half = length * 0.22 * (1 - u * u);
    if (std::abs(v) >= half) return 0;
    if (std::abs(v) < 0.6 && u < 0.8) return 120;
    return 200 + int(55 * std::abs(v) / half);
  };
}

struct PenFile {
  const char* family;
  const char* name;
  int width, height;
  InkFn ink;
};

std::vector<PenFile> Families() {
  return {
      {"chalk", "chalk_08.bmp", 9, 9, Chalk(4.5, 4.5, 1)},
      {"chalk", "chalk_16.bmp", 17, 17, Chalk(8.5, 8.5, 2)},
      {"chalk", "chalk_24.bmp", 25, 25, Chalk(12.5, 12.5, 3)},
      {"chalk", "chalk_32.bmp", 33, 33, Chalk(16.5, 16.5, 4)},
      {"chalk", "chalk_flat.bmp", 33, 13, Chalk(16.5, 6.5, 5)},
      {"dots", "dots_pair.bmp", 16, 8, Dots({{-4, 0}, {4, 0}}, 2.5)},
      {"dots", "dots_ring.bmp", 25, 25, Dots(Ring(8, 9), 2)},
      {"dots", "dots_grid.bmp", 21, 21,
       Dots({{-7, -7}, {0, -7}, {7, -7}, {-7, 0}, {0, 0}, {7, 0}, {-7, 7}, {0, 7}, {7, 7}}, 2)},
      {"dots", "dots_scatter.bmp", 32, 32, Dots(Scatter(12, 13, 7), 1.5)},
      {"dots", "dots_spray.bmp", 32, 32, Dots(Scatter(30, 14, 8), 0.8)},
      {"leaf", "leaf_000.bmp", 29, 29, Leaf(26, 0)},
      {"leaf", "leaf_045.bmp", 29, 29, Leaf(26, 45)},
      {"leaf", "leaf_090.bmp", 29, 29, Leaf(26, 90)},
      {"leaf", "leaf_135.bmp", 29, 29, Leaf(26, 135)},
      {"leaf", "leaf_small.bmp", 15, 15, Leaf(13, 60)},
  };
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_pendata <pendata folder>\n");
    return 2;
  }
  std::filesystem::path root(argv[1]);
  for (const PenFile& file : Families()) {
    std::error_code error;
    std::filesystem::create_directories(root / file.family, error);
    std::filesystem::path path = root / file.family / file.name;
    if (error || !WriteBmp(path, Draw(file.width, file.height, file.ink))) {
      std::fprintf(stderr, "make_pendata: could not write %s\n", path.string().c_str());
      return 1;
    }
  }
  return 0;
}
