// Canvases for the composition tests, built slot by slot with planes of
// seeded random content, and a comparison of a composed tile with the
// reference picture. Each test runs with the vector kernels and without.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "compose_reference.h"
#include "display/compose.h"
#include "pixel/mix_rows.h"
#include "pixel/vector_paths.h"
#include "platform/headless/headless.h"
#include "settings/settings.h"
#include "support/fixture.h"
#include "support/vector_paths.h"

enum class Fill { Random, Edges, Constant };

class ComposeTest : public TeselTest, public ::testing::WithParamInterface<bool> {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    settings.backgroundRed = 200;
    settings.backgroundGreen = 120;
    settings.backgroundBlue = 41;
    UseVectorPaths(GetParam());
    canvas = std::make_unique<Canvas>();
  }
  void TearDown() override {
    for (PlaneSlot& slot : canvas->planes) PlaneStore.FreePlane(&slot.plane);
    PlaneStore.FreePlane(&canvas->selectionPlane);
    TeselTest::TearDown();
  }

 public:
  // A plane of w x h filled by kind: uniform random bytes, random bytes with
  // long runs of 0 and 255, or `value` throughout.
  Plane* MakePlane(int w, int h, int bits, Fill fill, uint8_t value = 0, uint32_t kind = Physical) {
    Plane* plane = PlaneStore.CreatePlane(w, h, bits, value, 1, kind);
    if (!plane || fill == Fill::Constant) return plane;
    std::vector<uint8_t> row(static_cast<size_t>(w) * plane->bytesPerPixel);
    for (int y = 0; y < h; ++y) {
      for (size_t i = 0; i < row.size(); ++i) {
        uint8_t byte = static_cast<uint8_t>(rng());
        if (fill == Fill::Edges && (i / 7) % 3 != 2) byte = ((i / 21) + y) % 2 ? 255 : 0;
        row[i] = byte;
      }
      PlaneStore.WriteRow(plane, y, 0, w - 1, row.data());
    }
    return plane;
  }

  // A layer at the first free place, with a random image and a transparency
  // plane with runs of 0 and 255 among random values.
  int AddLayer(int left, int top, int w, int h, int mixMode = 1, int opacityLoss = 0,
               uint32_t kind = Physical) {
    int layer = 0;
    while (canvas->planes[layer * 8].plane) ++layer;
    for (int position = 0; position < 8; ++position) {
      PlaneSlot& slot = canvas->planes[layer * 8 + position];
      slot.left = left, slot.top = top, slot.width = w, slot.height = h;
      slot.bits = position == 0 ? 24 : 8;
      slot.displayMode = position == 0 ? 1 : 10;
    }
    PlaneSlot& image = canvas->planes[layer * 8];
    image.plane = MakePlane(w, h, 24, Fill::Random, 0, kind);
    image.mixMode = mixMode;
    image.opacityLoss = opacityLoss;
    canvas->planes[layer * 8 + 2].plane = MakePlane(w, h, 8, Fill::Edges, 0, kind);
    if (layer == 0) canvas->canvasWidth = w, canvas->canvasHeight = h;
    return layer;
  }

  // An 8-bit plane at a position of a layer, with planeFlags index `flag`
  // set (or none for -1).
  PlaneSlot& SetPlane(int layer, int position, int flag, Fill fill = Fill::Edges,
                      uint8_t value = 0) {
    PlaneSlot& slot = canvas->planes[layer * 8 + position];
    PlaneStore.FreePlane(&slot.plane);
    slot.plane = MakePlane(slot.width, slot.height, 8, fill, value);
    if (flag >= 0) slot.planeFlags[flag] = 1;
    return slot;
  }

  // The picture of canvas x0..x1, y0..y1 as bytes, top row first; empty
  // without a tile.
  std::vector<uint8_t> Picture(int x0, int y0, int x1, int y1, bool shade = false,
                               bool baseOpaque = false) {
    DibTile* tile = Compose(canvas.get(), x0, y0, x1, y1, shade, baseOpaque);
    if (!tile) return {};
    std::vector<uint8_t> bytes(3 * size_t(tile->width) * tile->height);
    for (int y = 0; y < tile->height; ++y)
      ReadTileRow(tile, y, 0, tile->width - 1, &bytes[3 * size_t(tile->width) * y]);
    FreeTile(&tile);
    return bytes;
  }
  // One composed row of canvas columns x0..x1.
  std::vector<uint8_t> Row(int x0, int y, int x1, bool shade = false, bool baseOpaque = false) {
    return Picture(x0, y, x1, y, shade, baseOpaque);
  }
  // The picture as composed and as the reference makes it must agree byte
  // for byte; the first difference is reported.
  void ExpectTile(int x0, int y0, int x1, int y1, bool shade = false, bool baseOpaque = false) {
    const std::vector<uint8_t> got = Picture(x0, y0, x1, y1, shade, baseOpaque);
    const std::vector<uint8_t> want =
        ref::Compose(*canvas, x0, y0, x1, y1, shade, baseOpaque).bytes;
    ASSERT_EQ(got.size(), want.size());
    const auto [g, w] = std::mismatch(got.begin(), got.end(), want.begin());
    const size_t i = size_t(g - got.begin()) / 3, width = size_t(x1 - x0 + 1);
    EXPECT_TRUE(g == got.end()) << "canvas pixel (" << x0 + int(i % width) << ", "
                                << y0 + int(i / width) << "): " << int(*g) << ", expected "
                                << int(*w);
  }

  static std::vector<uint8_t> Repeated(std::vector<uint8_t> bgr, int n) {
    std::vector<uint8_t> row;
    for (int i = 0; i < n; ++i) row.insert(row.end(), bgr.begin(), bgr.end());
    return row;
  }

  std::unique_ptr<Canvas> canvas;
  std::mt19937 rng{12345};
};
