// Canvases of several layers with seeded random pixels for the layer
// operation tests, and the expected pictures from the slow reference
// compositor.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

#include "display/compose_reference.h"
#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "layers/install.h"
#include "layers/layer_windows.h"
#include "settings/settings.h"
#include "support/fixture.h"
#include "support/pixel_reference.h"
#include "support/planes.h"

class LayersTest : public TeselTest {
 protected:
  void SetUp() override {
    TeselTest::SetUp();
    settings.backgroundRed = 10;
    settings.backgroundGreen = 160;
    settings.backgroundBlue = 90;
    settings.defaultDisplay = kDisplayLayersBlended;
    settings.undoCount = 3;
    InstallLayers();
  }

  void Randomize(Plane* plane) {
    std::vector<uint8_t> bytes(size_t(plane->width) * plane->height * plane->bytesPerPixel);
    for (uint8_t& byte : bytes) {
      byte = static_cast<uint8_t>(rng());
      // Runs of the extremes, where rounding and ORs are telling.
      if (rng() % 4 == 0) byte = rng() % 2 ? 255 : 0;
    }
    PutPlaneBytes(plane, bytes);
  }

  // A canvas of `layers` layers of random image and transparency; layer i
  // above 0 has mix mode modes[i - 1] and opacity loss 40 i.
  Canvas* MakeLayered(int width, int height, int layers, const std::vector<int>& modes = {}) {
    Canvas* canvas = MakeBlank(width, height);
    for (int layer = 1; layer < layers; ++layer) {
      const int index = CanvasManager.AddLayer(canvas, 0, 0, width, height);
      EXPECT_EQ(index, layer * 8);
      canvas->planes[index].mixMode = layer - 1 < int(modes.size()) ? modes[layer - 1] : 1;
      canvas->planes[index].opacityLoss = 40 * layer;
    }
    for (int layer = 0; layer < layers; ++layer) {
      Randomize(canvas->planes[layer * 8].plane);
      Randomize(canvas->planes[layer * 8 + 2].plane);
    }
    return canvas;
  }

  // A random base of width x height and a smaller random layer 1 at
  // (left, top), mask included.
  Canvas* MakeWithSmallLayer(int width, int height, int left, int top, int w, int h) {
    Canvas* canvas = MakeLayered(width, height, 1);
    EXPECT_EQ(CanvasManager.AddLayer(canvas, left, top, w, h), 8);
    for (int position : {0, 1, 2}) Randomize(canvas->planes[8 + position].plane);
    return canvas;
  }

  static std::vector<uint8_t> Reference(const Canvas& canvas, bool baseOpaque) {
    return ref::Compose(canvas, 0, 0, canvas.canvasWidth - 1, canvas.canvasHeight - 1, false,
                        baseOpaque)
        .bytes;
  }

  // The coverage of the whole stack from each layer's coverage: layers of
  // full size only, High Light and hidden ones left out.
  static std::vector<uint8_t> ReferenceCoverage(const Canvas& canvas) {
    std::vector<uint8_t> out;
    for (int y = 0; y < canvas.canvasHeight; ++y)
      for (int x = 0; x < canvas.canvasWidth; ++x) {
        unsigned acc = 0;
        for (int layer = 0; layer < kMaxLayers && canvas.planes[layer * 8].plane; ++layer) {
          const PlaneSlot& image = canvas.planes[layer * 8];
          if (image.mixMode == 0 || image.mixMode == 7) continue;
          const unsigned a = ref::Mul(ref::Coverage(canvas, layer, x, y), 255 - image.opacityLoss);
          acc = 255 - ref::Mul(255 - acc, 255 - a);
        }
        out.push_back(static_cast<uint8_t>(acc));
      }
    return out;
  }

  // The canvas CanvasRequest describes, as its document window makes it.
  Canvas* MakeRequested() {
    Canvas* canvas = NewRecord();
    EXPECT_EQ(CanvasManager.MakeCanvas(canvas, nullptr), 1);
    return canvas;
  }

  std::mt19937 rng{2024};
};
