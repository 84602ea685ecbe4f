// The three storage kinds on the Win32 seam: the same random row writes on a
// Virtual, a Physical and a Packed plane must read back as a plain model of
// the picture says, at 8 and 24 bits. The planes are large enough for the
// Virtual kind to move its view and evict rows, and for the Packed kind to
// commit pages on first touch across many blocks. A Packed block must
// compress into its own size, and a block never stored reads whatever was
// unpacked last, so the planes are filled at creation and the writes are
// runs of a few values, as pictures are.
#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "seam_check.h"
#include "store/plane_store.h"

namespace seam_check {

namespace {

const char* KindName(uint32_t kind) {
  return kind == Virtual ? "Virtual" : kind == Physical ? "Physical" : "Packed";
}

// Applies the writes to the plane and to the model; returns the first row
// that reads back otherwise, or -1.
int FirstWrongRow(Plane* plane, int width, int height, int bytesPerPixel, uint32_t seed) {
  const size_t rowBytes = static_cast<size_t>(width) * bytesPerPixel;
  std::vector<uint8_t> model(rowBytes * height, 0);
  std::vector<uint8_t> row(rowBytes);
  std::mt19937 random(seed);
  for (int n = 0; n < 1000; ++n) {
    const int y = static_cast<int>(random() % height);
    const int x0 = static_cast<int>(random() % width);
    // A Packed write from column 0 stores the whole row from the buffer.
    const int x1 = x0 == 0 ? width - 1 : x0 + static_cast<int>(random() % (width - x0));
    const size_t count = static_cast<size_t>(x1 - x0 + 1) * bytesPerPixel;
    uint8_t value = 0;
    for (size_t i = 0; i < count; ++i) {
      if (i % 16 == 0) value = static_cast<uint8_t>(random() % 4 * 85);
      row[i] = value;
    }
    if (PlaneStore.WriteRow(plane, y, x0, x1, row.data()) != 1) return y;
    std::copy(row.begin(), row.begin() + count, model.begin() + y * rowBytes + x0 * bytesPerPixel);
  }
  for (int y = 0; y < height; ++y) {
    if (PlaneStore.ReadRow(plane, y, 0, width - 1, row.data()) != 1) return y;
    if (!std::equal(row.begin(), row.end(), model.begin() + y * rowBytes)) return y;
  }
  return -1;
}

}  // namespace

void CheckPlaneKinds() {
  const int width = 700, height = 530;
  for (int bits : {24, 8}) {
    for (uint32_t kind : {Virtual, Physical, Packed}) {
      Plane* plane = PlaneStore.CreatePlane(width, height, bits, 0, 1, kind);
      const int wrong = plane ? FirstWrongRow(plane, width, height, bits / 8, 12345) : -2;
      const std::string seen =
          wrong == -1 ? "" : wrong == -2 ? "not created" : "row " + std::to_string(wrong);
      Report(std::string(KindName(kind)) + " plane of " + std::to_string(bits) +
                 " bits reads back random row writes",
             wrong == -1, seen);
      PlaneStore.FreePlane(&plane);
    }
  }
}

}  // namespace seam_check
