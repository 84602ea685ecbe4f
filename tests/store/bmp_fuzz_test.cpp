// Mutated and truncated BMP files, loaded thousands of times: the reader must
// refuse or read each one without touching memory it doesn't own (the
// sanitizer build is what sees that).
#include <gtest/gtest.h>

#include <iterator>

#include "dib_test_support.h"
#include "store/dib.h"

namespace {

using namespace dibtest;

std::vector<Bytes> Seeds() {
  BmpSpec one{13, 4, 1, {{0, 0, 0}, {255, 255, 255}}, std::vector<Bytes>(4, Bytes{0xaa, 0x55})};
  BmpSpec four{7, 5, 4, {}, std::vector<Bytes>(5, Bytes{0x12, 0x34, 0x56, 0x70})};
  for (int i = 0; i < 16; i++) four.palette.push_back({uint8_t(i * 16), uint8_t(i), 7});
  BmpSpec eight{6, 3, 8, {}, std::vector<Bytes>(3, Bytes{0, 50, 100, 150, 200, 250})};
  for (int i = 0; i < 256; i++) eight.palette.push_back(Bytes(3, uint8_t(i)));
  BmpSpec colour{5, 4, 24, {}, std::vector<Bytes>(4, Bytes(15, 0x3c)), true};
  return {BuildBmp(one), BuildBmp(four), BuildBmp(eight), BuildBmp(colour)};
}

// Values on the edges of the header checks.
constexpr uint32_t kEdges[] = {0, 1, 2, 4, 8, 24, 40, 54, 0x7f, 0x80, 0xff, 0x100, 0xffff,
                               0x10000, 0x7fffffff, 0x80000000, 0xffffffff};

void Mutate(Bytes& file, Random& random) {
  for (int k = 1 + random.Below(4); k > 0 && !file.empty(); k--) {
    const auto size = static_cast<uint32_t>(file.size());
    switch (random.Below(5)) {
      case 0:  // any byte
        file[random.Below(size)] = static_cast<uint8_t>(random.Next());
        break;
      case 1:  // one bit of the headers
        file[random.Below(std::min(54u, size))] ^= static_cast<uint8_t>(1u << random.Below(8));
        break;
      case 2: {  // a header field to an edge value
        const uint32_t at = 2 + 4 * random.Below(13);
        const uint32_t value = kEdges[random.Below(std::size(kEdges))];
        for (uint32_t b = 0; b < 4 && at + b < size; b++) file[at + b] = static_cast<uint8_t>(value >> (8 * b));
        break;
      }
      case 3:  // cut short
        file.resize(random.Below(size + 1));
        break;
      default:  // noise after the end
        for (uint32_t n = random.Below(64); n > 0; n--) file.push_back(static_cast<uint8_t>(random.Next()));
    }
  }
}

TEST_F(DibTest, MutatedFilesNeverBreakTheReader) {
  const std::vector<Bytes> seeds = Seeds();
  const std::string path = TempPath("fuzz.bmp");
  Random random{20240611};
  int loaded = 0;
  for (int run = 0; run < 4000; run++) {
    Bytes file = seeds[run % seeds.size()];
    Mutate(file, random);
    WriteBytes(path, file);
    settings.workBuffer = run % 3;
    Plane* plane = LoadBmp(path);
    if (!plane) continue;
    loaded++;
    EXPECT_TRUE(plane->bits == 8 || plane->bits == 24);
    PixelsOf(plane);  // every row readable
    PlaneStore.FreePlane(&plane);
  }
  // Both outcomes must be common, or the mutations test nothing.
  EXPECT_GT(loaded, 400);
  EXPECT_LT(loaded, 3600);
  EXPECT_TRUE(headless::Recorded().boxes.empty());
}

}  // namespace
