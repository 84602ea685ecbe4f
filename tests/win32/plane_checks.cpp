// The three storage kinds on the Win32 seam: random row writes must read back
// as a plain model says, at 8 and 24 bits, on planes large enough for the view
// to move, rows to be evicted and packed blocks to commit pages on first touch.
// Packed blocks must compress, so the writes are runs of a few values.
#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "seam_check.h"
#include "store/plane_store.h"

namespace seam_check {

void CheckPlaneKinds() {
  const int width = 700, height = 530;
  for (int bits : {24, 8}) {
    for (uint32_t kind : {Virtual, Physical, Packed}) {
      const size_t rowBytes = static_cast<size_t>(width) * bits / 8;
      std::vector<uint8_t> model(rowBytes * height, 0), row(rowBytes);
      Plane* plane = PlaneStore.CreatePlane(width, height, bits, 0, 1, kind);
      std::mt19937 random(12345);
      int wrong = plane ? -1 : -2;  // the first row that reads back otherwise
      for (int n = 0; n < 1000 && wrong == -1; ++n) {
        const int y = static_cast<int>(random() % height), x0 = static_cast<int>(random() % width);
        // A Packed write from column 0 stores the whole row from the buffer.
        const int x1 = x0 == 0 ? width - 1 : x0 + static_cast<int>(random() % (width - x0));
        const size_t count = static_cast<size_t>(x1 - x0 + 1) * bits / 8;
        for (size_t i = 0; i < count; ++i) row[i] = static_cast<uint8_t>(i % 16 ? row[i - 1] : random() % 4 * 85);
        if (PlaneStore.WriteRow(plane, y, x0, x1, row.data()) != 1) wrong = y;
        std::copy_n(row.begin(), count, model.begin() + y * rowBytes + x0 * bits / 8);
      }
      for (int y = 0; y < height && wrong == -1; ++y)
        if (PlaneStore.ReadRow(plane, y, 0, width - 1, row.data()) != 1 ||
            !std::equal(row.begin(), row.end(), model.begin() + y * rowBytes))
          wrong = y;
      Report(std::string(kind == Virtual ? "Virtual" : kind == Physical ? "Physical" : "Packed") + " plane of " +
                 std::to_string(bits) + " bits reads back random row writes",
             wrong == -1, wrong == -1 ? "" : wrong == -2 ? "not created" : "row " + std::to_string(wrong));
      PlaneStore.FreePlane(&plane);
    }
  }
}

}  // namespace seam_check
