#include "layers/rotate_preview.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

std::vector<uint8_t> RotatePreview(const Canvas* canvas, int layer, double degrees, int size,
                                   uint32_t background) {
  std::vector<uint8_t> picture(static_cast<size_t>(size) * size * 3);
  for (size_t i = 0; i < picture.size(); i += 3) {
    picture[i] = background & 0xFF;
    picture[i + 1] = (background >> 8) & 0xFF;
    picture[i + 2] = (background >> 16) & 0xFF;
  }
  const PlaneSlot& slot = canvas->planes[SlotIndex(layer, kImagePosition)];
  if (!slot.plane || slot.width < 1 || slot.height < 1 || size < 1) return picture;

  const double angle = degrees * std::numbers::pi / 180;
  const double c = std::cos(angle), s = std::sin(angle);
  const double w = slot.width, h = slot.height;
  const double turnedWidth = std::abs(w * c) + std::abs(h * s);
  const double turnedHeight = std::abs(w * s) + std::abs(h * c);
  const double scale = std::min(size / turnedWidth, size / turnedHeight);

  // Only the rows the turned square samples are read, each once.
  std::map<int, std::vector<uint8_t>> rows;
  auto row = [&](int y) -> const std::vector<uint8_t>& {
    auto [at, fresh] = rows.try_emplace(y);
    if (fresh) {
      at->second.resize(static_cast<size_t>(slot.width) * 3);
      PlaneStore.ReadRow(slot.plane, y, 0, slot.width - 1, at->second.data());
    }
    return at->second;
  };
  for (int py = 0; py < size; ++py) {
    for (int px = 0; px < size; ++px) {
      const double x = (px + 0.5 - size / 2.0) / scale, y = (py + 0.5 - size / 2.0) / scale;
      const double lx = std::floor(x * c + y * s + w / 2), ly = std::floor(-x * s + y * c + h / 2);
      if (lx < 0 || ly < 0 || lx >= w || ly >= h) continue;
      const uint8_t* from = &row(static_cast<int>(ly))[static_cast<size_t>(lx) * 3];
      std::copy(from, from + 3, &picture[(static_cast<size_t>(py) * size + px) * 3]);
    }
  }
  return picture;
}
