#include <cstdlib>

#include "document/undo_history.h"
#include "layers/drop_shadow.h"
#include "layers_fixture.h"

namespace {

using Shadow = LayersTest;

// One channel of w x h, row after row.
struct Grid {
  int w, h;
  std::vector<int> v;
  Grid(int w, int h) : w(w), h(h), v(size_t(w) * h, 0) {}
  int& At(int x, int y) { return v[size_t(y) * w + x]; }
};

// The 3 x 3 mean with clamped edges, truncating, each pixel from the
// unblurred plane.
Grid Blurred(Grid g) {
  Grid out(g.w, g.h);
  for (int y = 0; y < g.h; ++y)
    for (int x = 0; x < g.w; ++x) {
      int sum = 0;
      for (int j = -1; j <= 1; ++j)
        for (int i = -1; i <= 1; ++i)
          sum += g.At(std::clamp(x + i, 0, g.w - 1), std::clamp(y + j, 0, g.h - 1));
      out.At(x, y) = sum / 9;
    }
  return out;
}

// The layer of a shadow worked out pixel by pixel from the rules: the
// enlarged image (blue, green, red) and transparency.
void ExpectShadow(Plane* oldImage, Plane* oldCover, int dx, int dy, int blur, const unsigned rgb[3],
                  Plane* image, Plane* cover) {
  const int w = oldImage->width, h = oldImage->height;
  const int W = w + std::abs(dx) + blur, H = h + std::abs(dy) + blur;
  ASSERT_EQ(image->width, W);
  ASSERT_EQ(image->height, H);
  Grid shadow(W, H);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x)
      if (x + dx >= 0 && x + dx < W && y + dy >= 0 && y + dy < H)
        shadow.At(x + dx, y + dy) = int(PixelValue(oldCover, x, y));
  for (int pass = 0; pass < blur; ++pass) shadow = Blurred(shadow);
  for (int y = 0; y < H; ++y)
    for (int x = 0; x < W; ++x) {
      std::array<uint32_t, 3> want{0, 0, 0};
      uint32_t t = uint32_t(shadow.At(x, y));
      if (x < w && y < h) {
        const uint32_t m = PixelValue(oldCover, x, y);
        const auto c = PixelRgb(oldImage, x, y);
        for (int k = 0; k < 3; ++k)
          want[k] = std::min(255u, ref::Mul(c[k], m) + ref::Mul(rgb[k], 255 - m));
        t |= m;
      }
      ASSERT_EQ(PixelRgb(image, x, y), want) << x << ", " << y;
      ASSERT_EQ(PixelValue(cover, x, y), t) << x << ", " << y;
    }
}

TEST_F(Shadow, GrowsTheLayerPreBlendsItAndOrsTheBlurredShadowIn) {
  const unsigned rgb[3] = {200, 30, 90};
  for (const auto [dx, dy, blur] :
       {std::array{3, 2, 2}, std::array{-2, 4, 1}, std::array{0, 0, 0}, std::array{5, -3, 3}}) {
    Canvas* canvas = MakeLayered(20, 16, 2);
    PlaneSlot* layer = &canvas->planes[8];
    const int left = layer->left, top = layer->top;
    // Copies of the old planes for the expectation; the layer's own go away.
    Plane* image = PlaneOfBytes(20, 16, 24, PlaneBytes(layer[0].plane));
    Plane* cover = PlaneOfBytes(20, 16, 8, PlaneBytes(layer[2].plane));
    Plane* mask = PlaneOfBytes(20, 16, 8, std::vector<uint8_t>(320, 77));
    PutPlaneBytes(layer[1].plane, PlaneBytes(mask));
    ASSERT_EQ(DropShadow(canvas, 1, dx, dy, blur, rgb[0], rgb[1], rgb[2]), 1);
    ExpectShadow(image, cover, dx, dy, blur, rgb, layer[0].plane, layer[2].plane);
    for (int position = 0; position < 8; ++position) {
      EXPECT_EQ(layer[position].width, 20 + std::abs(dx) + blur);
      EXPECT_EQ(layer[position].left, left);
      EXPECT_EQ(layer[position].top, top);
    }
    // Other planes keep their pixels at the top left; zeros beyond.
    EXPECT_EQ(PixelValue(layer[1].plane, 19, 15), 77u);
    EXPECT_EQ(PixelValue(layer[1].plane, 20 + std::abs(dx) + blur - 1, 15),
              blur + std::abs(dx) ? 0u : 77u);
    EXPECT_EQ(UndoHistory.entries[0].kind, kUndoWhole);
    EXPECT_EQ(UndoHistory.entries[0].planeIndex, 8);
    for (Plane* plane : {image, cover, mask}) PlaneStore.FreePlane(&plane);
  }
}

TEST_F(Shadow, IsRefusedOnALayerWithoutTransparency) {
  settings.noTransparencyPlane = 1;
  Canvas* canvas = MakeBlank(10, 10);
  CanvasManager.AddLayer(canvas, 0, 0, 10, 10);
  Plane* image = canvas->planes[8].plane;
  EXPECT_EQ(DropShadow(canvas, 1, 2, 2, 1, 0, 0, 0), 0);
  EXPECT_EQ(BoxTexts(),
            std::vector<std::string>{"Drop shadow cannot be made on layers with no transparency!"});
  EXPECT_EQ(canvas->planes[8].plane, image);
  EXPECT_EQ(canvas->planes[8].width, 10);
}

}  // namespace
