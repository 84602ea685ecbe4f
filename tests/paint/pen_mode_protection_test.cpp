// What keeps paint off a pixel: the mask and further planes, the layer's
// opacity, the selection, the kernels' strict reading, and the colour mask.
#include "paint/blend_row.h"
#include "paint/color_mask.h"
#include "paint/pen_modes.h"
#include "paint/protection.h"
#include "pen_mode_support.h"

namespace {

using namespace pentest;

class ProtectionTest : public KernelTest {
 protected:
  std::vector<uint8_t> Protection(int y, int x0, int x1) {
    std::vector<uint8_t> out(size_t(x1 - x0 + 1), kSentinel);
    ReadProtectionRow(canvas.get(), y, x0, x1, out.data(), 0);
    return out;
  }
  std::vector<uint8_t> Opacity(int y, int x0, int x1) {
    std::vector<uint8_t> out(size_t(x1 - x0 + 1), kSentinel);
    ReadOpacityRow(canvas.get(), y, x0, x1, out.data(), 0);
    return out;
  }
  PlaneSlot& SlotAt(int index) { return canvas->planes[index]; }
};

TEST_F(ProtectionTest, MaskAndFurtherPlanesProtectUpToTheFirstEmptySlot) {
  // A layer standing at (2, 1), 10 x 8.
  Make(0, 2, 1, 10, 8);
  Image m = Snap(Make(1, 2, 1, 10, 8));
  Image adds = Snap(Make(3, 2, 1, 10, 8)), inverts = Snap(Make(4, 2, 1, 10, 8));
  Make(5, 2, 1, 10, 8);
  Make(7, 2, 1, 10, 8);  // beyond the empty slot 6: never read
  SlotAt(3).planeFlags[2] = 1;
  SlotAt(4).planeFlags[3] = 1;
  SlotAt(5).planeFlags[2] = 1;
  SlotAt(5).planeOff = 1;
  SlotAt(7).planeFlags[2] = 1;
  for (bool maskOff : {false, true}) {
    SlotAt(1).planeOff = maskOff;
    const int y = 4;
    std::vector<uint8_t> row = Protection(y, 2, 11);
    for (int px = 0; px < 10; ++px) {
      uint8_t want = uint8_t((maskOff ? 0 : m.at(px, y - 1)) | adds.at(px, y - 1) |
                             (255 - inverts.at(px, y - 1)));
      EXPECT_EQ(want, row[px]) << "mask off " << maskOff << " column " << px;
    }
    EXPECT_EQ(row[5], ReadProtectionPixel(canvas.get(), 2 + 5, y, 0));
  }
  disableMask = 1;
  EXPECT_EQ(std::vector<uint8_t>(10, 0), Protection(4, 2, 11));
}

TEST_F(ProtectionTest, OpacityMultipliesByFlaggedPlanesSkippingEmptyAndOff) {
  Make(0);
  Image t = Snap(Make(2));
  Image times = Snap(Make(4)), both = Snap(Make(5));
  Make(6);
  SlotAt(4).planeFlags[4] = 1;
  SlotAt(5).planeFlags[4] = SlotAt(5).planeFlags[5] = 1;
  SlotAt(6).planeFlags[4] = 1;
  SlotAt(6).planeOff = 1;
  for (bool transparencyOff : {false, true}) {
    SlotAt(2).planeOff = transparencyOff;
    std::vector<uint8_t> row = Opacity(6, 0, kWidth - 1);
    for (int x = 0; x < kWidth; ++x) {
      unsigned v = transparencyOff ? 255 : t.at(x, 6);
      v = RefMul(v, times.at(x, 6));
      v = RefMul(RefMul(v, both.at(x, 6)), 255 - both.at(x, 6));
      EXPECT_EQ(v, row[x]) << x;
    }
  }
}

TEST_F(ProtectionTest, SelectionProtectsDuringFillOrWithMaskOutsideSelection) {
  MakeLayer();
  canvas->selectionPlane = PlaneStore.CreatePlane(kWidth, kHeight, 8, 0, 1, Physical);
  Randomise(canvas->selectionPlane);
  const Image sel = Snap(canvas->selectionPlane), m = Snap(mask);
  pen.mode = kModeEraser;
  for (int active : {0, 2})
    for (int option : {0, 1, 2}) {
      canvas->activePlane = active;
      maskOutsideSelection = option == 1;
      fillInProgress = option == 2;
      KernelRows rows = Fetch(3, 0, kWidth - 1, 0, 0, 15, 11);
      for (int x = 0; x < kWidth; ++x)
        EXPECT_EQ(uint8_t((active == 0 ? m.at(x, 3) : 0) | (option ? sel.at(x, 3) : 0)),
                  rows.protect[x])
            << "plane " << active << " option " << option;
    }
  // BlendRow asked to add the protection replaces the caller's row with it.
  canvas->activePlane = 0;
  maskOutsideSelection = 1;
  fillInProgress = 0;
  std::vector<uint8_t> source = RandomBytes(3 * kWidth), tip(kWidth, 0), opacity(kWidth, 0),
                       protect = RandomBytes(kWidth);
  BlendRow(canvas.get(), source.data(), tip.data(), nullptr, opacity.data(), protect.data(), 1, 2,
           0, kWidth - 1, 1);
  for (int x = 0; x < kWidth; ++x) EXPECT_EQ(m.at(x, 2) | sel.at(x, 2), protect[x]);
  // No selection raster: all selected.
  PlaneStore.FreePlane(&canvas->selectionPlane);
  canvas->activePlane = 2;
  EXPECT_EQ(std::vector<uint8_t>(kWidth, 0), Fetch(3, 0, kWidth - 1, 0, 0, 15, 11).protect);
}

TEST_F(ProtectionTest, KernelsRefuseAnyProtectionAndReadInsideThePlane) {
  MakeLayer();
  const Image im = Snap(image), a = Snap(alpha);
  Image m = Snap(mask);
  m.at(4, 4) = 1;  // the faintest protection refuses
  m.at(5, 4) = 0;
  Put(mask, m);
  uint32_t r, g, b, o;
  EXPECT_EQ(0, ReadPenPixel(canvas.get(), 4, 4, &r, &g, &b, &o));
  ASSERT_EQ(1, ReadPenPixel(canvas.get(), 5, 4, &r, &g, &b, &o));
  EXPECT_EQ((std::array<uint32_t, 4>{im.at(5, 4, 2), im.at(5, 4, 1), im.at(5, 4, 0), a.at(5, 4)}),
            (std::array<uint32_t, 4>{r, g, b, o}));
  disableMask = 1;
  EXPECT_EQ(1, ReadPenPixel(canvas.get(), 4, 4, &r, &g, &b, &o));
  // Off the plane the nearest edge pixel answers.
  ASSERT_EQ(1, ReadPenPixel(canvas.get(), -5, 40, &r, &g, &b, &o));
  EXPECT_EQ(
      (std::array<uint32_t, 4>{im.at(0, 11, 2), im.at(0, 11, 1), im.at(0, 11, 0), a.at(0, 11)}),
      (std::array<uint32_t, 4>{r, g, b, o}));
  // The selection refuses with Mask Outside Selection only.
  canvas->selectionPlane = PlaneStore.CreatePlane(kWidth, kHeight, 8, 0, 1, Physical);
  PlaneStore.WritePixel8(canvas->selectionPlane, 5, 4, 1);
  EXPECT_EQ(1, ReadPenPixel(canvas.get(), 5, 4, &r, &g, &b, &o));
  maskOutsideSelection = 1;
  EXPECT_EQ(0, ReadPenPixel(canvas.get(), 5, 4, &r, &g, &b, &o));
  // Other planes read their own value three times, with opacity 0.
  canvas->activePlane = 1;
  ASSERT_EQ(1, ReadPenPixel(canvas.get(), 6, 4, &r, &g, &b, &o));
  EXPECT_EQ((std::array<uint32_t, 4>{m.at(6, 4), m.at(6, 4), m.at(6, 4), 0}),
            (std::array<uint32_t, 4>{r, g, b, o}));
}

TEST_F(ProtectionTest, ColourMaskKeepsPaintToColoursNearTheKey) {
  MakeLayer();
  Image im = Snap(image), a = Snap(alpha);
  // Some pixels white and opaque, some nearly so.
  for (int x = 0; x < kWidth; x += 2) {
    for (int c = 0; c < 3; ++c) im.at(x, 5, c) = uint8_t(255 - x);
    a.at(x, 5) = 255;
  }
  Put(image, im);
  Put(alpha, a);
  const Image m = Snap(mask);
  colorMaskChoice = 3;  // White
  colorMaskVagueness = 8;
  auto near = [&](int x, int y) {
    for (int c = 0; c < 3; ++c)
      if (255 - int(RefMul(im.at(x, y, c), a.at(x, y))) > 8) return false;
    return true;
  };
  for (int tool : {20000, 20005, 20007}) {
    penTool = tool;
    KernelRows rows = Fetch(5, 0, kWidth - 1, 0, 0, 15, 11);
    for (int x = 0; x < kWidth; ++x) {
      uint8_t colour = tool != 20007 && !near(x, 5) ? 255 : 0;
      EXPECT_EQ(m.at(x, 5) | colour, rows.protect[x]) << "tool " << tool << " x " << x;
    }
  }
  // The map stays for the stroke, made at its first dab only.
  penTool = 20005;
  Randomise(image);
  dabCount = 3;
  KernelRows later = Fetch(5, 0, kWidth - 1, 0, 0, 15, 11);
  for (int x = 0; x < kWidth; ++x) EXPECT_EQ(m.at(x, 5) | (near(x, 5) ? 0 : 255), later.protect[x]);
  FreeColorMaskMap();
  KernelRows none = Fetch(5, 0, kWidth - 1, 0, 0, 15, 11);
  for (int x = 0; x < kWidth; ++x) EXPECT_EQ(m.at(x, 5), none.protect[x]);

  // StartPosition keys on the middle of the first dab's box, colours
  // weighted by opacity.
  colorMaskChoice = 1;
  colorMaskVagueness = 0;
  dabCount = 0;
  FreeColorMaskMap();
  im = Snap(image);
  KernelRows start = Fetch(2, 0, kWidth - 1, 4, 2, 9, 7);  // centre (6, 4)
  for (int x = 0; x < kWidth; ++x) {
    bool same = true;
    for (int c = 0; c < 3; ++c)
      same = same && RefMul(im.at(x, 2, c), a.at(x, 2)) == RefMul(im.at(6, 4, c), a.at(6, 4));
    EXPECT_EQ(m.at(x, 2) | (same ? 0 : 255), start.protect[x]) << x;
  }
}

}  // namespace
