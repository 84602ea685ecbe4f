// What keeps paint off a pixel: the mask and further planes, the layer's
// opacity, the selection, the kernels' strict reading, and the colour mask.
#include "base/current_tool.h"
#include "paint/modes/blend_row.h"
#include "paint/modes/color_mask.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/protection.h"
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
  // The further plane at a position, with planeFlags index `flag` set.
  Image Further(int position, int flag, int left = 0, int top = 0, int w = kWidth,
                int h = kHeight) {
    canvas->planes[position].planeFlags[flag] = 1;
    return Snap(Make(position, left, top, w, h));
  }
  // What ReadPenPixel gives at (x, y) as red, green, blue, opacity; empty
  // where it refuses.
  std::vector<uint32_t> PenRead(int x, int y) {
    uint32_t r, g, b, o;
    if (!ReadPenPixel(canvas.get(), x, y, &r, &g, &b, &o)) return {};
    return {r, g, b, o};
  }
};

TEST_F(ProtectionTest, MaskAndFurtherPlanesProtectUpToTheFirstEmptySlot) {
  // A layer standing at (2, 1), 10 x 8; slot 7 lies beyond the empty slot 6.
  Make(0, 2, 1, 10, 8);
  Image m = Snap(Make(1, 2, 1, 10, 8));
  Image adds = Further(3, 2, 2, 1, 10, 8), inverts = Further(4, 3, 2, 1, 10, 8);
  Further(5, 2, 2, 1, 10, 8);
  Further(7, 2, 2, 1, 10, 8);
  canvas->planes[5].planeOff = 1;
  for (bool maskOff : {false, true}) {
    canvas->planes[1].planeOff = maskOff;
    std::vector<uint8_t> row = Protection(4, 2, 11);
    for (int px = 0; px < 10; ++px)
      EXPECT_EQ((maskOff ? 0 : m.at(px, 3)) | adds.at(px, 3) | (255 - inverts.at(px, 3)), row[px])
          << "mask off " << maskOff << " column " << px;
    EXPECT_EQ(row[5], ReadProtectionPixel(canvas.get(), 2 + 5, 4, 0));
  }
  protection.disableMask = 1;
  EXPECT_EQ(std::vector<uint8_t>(10, 0), Protection(4, 2, 11));
}

TEST_F(ProtectionTest, OpacityMultipliesByFlaggedPlanesSkippingEmptyAndOff) {
  Make(0);
  Image t = Snap(Make(2)), times = Further(4, 4), both = Further(5, 4);
  canvas->planes[5].planeFlags[5] = 1;
  Further(6, 4);
  canvas->planes[6].planeOff = 1;
  for (bool transparencyOff : {false, true}) {
    canvas->planes[2].planeOff = transparencyOff;
    std::vector<uint8_t> row(kWidth, kSentinel);
    ReadOpacityRow(canvas.get(), 6, 0, kWidth - 1, row.data(), 0);
    for (int x = 0; x < kWidth; ++x) {
      const unsigned v = ref::Mul(transparencyOff ? 255 : t.at(x, 6), times.at(x, 6));
      EXPECT_EQ(ref::Mul(ref::Mul(v, both.at(x, 6)), 255 - both.at(x, 6)), row[x]) << x;
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
      protection.maskOutsideSelection = option == 1;
      protection.fillInProgress = option == 2;
      KernelRows rows = Fetch(3, 0, kWidth - 1, 0, 0, 15, 11);
      for (int x = 0; x < kWidth; ++x)
        EXPECT_EQ((active == 0 ? m.at(x, 3) : 0) | (option ? sel.at(x, 3) : 0), rows.protect[x])
            << "plane " << active << " option " << option;
    }
  // BlendRow asked to add the protection replaces the caller's row with it.
  canvas->activePlane = 0;
  protection.maskOutsideSelection = 1;
  protection.fillInProgress = 0;
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
  auto pixel = [&](int x, int y) -> std::vector<uint32_t> {
    return {im.at(x, y, 2), im.at(x, y, 1), im.at(x, y, 0), a.at(x, y)};
  };
  EXPECT_EQ(PenRead(4, 4), std::vector<uint32_t>{});
  EXPECT_EQ(PenRead(5, 4), pixel(5, 4));
  protection.disableMask = 1;
  EXPECT_EQ(PenRead(4, 4), pixel(4, 4));
  EXPECT_EQ(PenRead(-5, 40), pixel(0, 11));  // off the plane the nearest edge pixel answers
  // The selection refuses with Mask Outside Selection only.
  canvas->selectionPlane = PlaneStore.CreatePlane(kWidth, kHeight, 8, 0, 1, Physical);
  PlaneStore.WritePixel8(canvas->selectionPlane, 5, 4, 1);
  EXPECT_EQ(PenRead(5, 4), pixel(5, 4));
  protection.maskOutsideSelection = 1;
  EXPECT_EQ(PenRead(5, 4), std::vector<uint32_t>{});
  // Other planes read their own value three times, with opacity 0.
  canvas->activePlane = 1;
  EXPECT_EQ(PenRead(6, 4), (std::vector<uint32_t>{m.at(6, 4), m.at(6, 4), m.at(6, 4), 0}));
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
  // Within the vagueness of the key in every channel, colours weighted by
  // opacity: the key's pixel paints, others are protected.
  auto expectKeyed = [&](const KernelRows& rows, int y, auto near) {
    for (int x = 0; x < kWidth; ++x)
      EXPECT_EQ(m.at(x, y) | (near(x) ? 0 : 255), rows.protect[x]) << x;
  };
  auto white = [&](int x) {
    for (int c = 0; c < 3; ++c)
      if (255 - int(ref::Mul(im.at(x, 5, c), a.at(x, 5))) > 8) return false;
    return true;
  };
  colorMask.choice = 3;  // White
  colorMask.vagueness = 8;
  for (int tool : {20000, 20005, 20007}) {  // only the freehand tools use it
    currentTool = tool;
    expectKeyed(Fetch(5, 0, kWidth - 1, 0, 0, 15, 11), 5,
                [&](int x) { return tool == 20007 || white(x); });
  }
  // The map stays for the stroke, made at its first dab only.
  currentTool = cmd::kFreeHandConnect;
  Randomise(image);
  tipState.dabCount = 3;
  expectKeyed(Fetch(5, 0, kWidth - 1, 0, 0, 15, 11), 5, white);
  FreeColorMaskMap();
  expectKeyed(Fetch(5, 0, kWidth - 1, 0, 0, 15, 11), 5, [](int) { return true; });

  // StartPosition keys on the middle of the first dab's box.
  colorMask.choice = 1;
  colorMask.vagueness = 0;
  tipState.dabCount = 0;
  im = Snap(image);
  expectKeyed(Fetch(2, 0, kWidth - 1, 4, 2, 9, 7), 2, [&](int x) {  // centre (6, 4)
    for (int c = 0; c < 3; ++c)
      if (ref::Mul(im.at(x, 2, c), a.at(x, 2)) != ref::Mul(im.at(6, 4, c), a.at(6, 4))) return false;
    return true;
  });
}

}  // namespace
