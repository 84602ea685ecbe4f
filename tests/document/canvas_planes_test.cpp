// Labels, titles, accuracy planes, the modified mark and the fills.
#include <cstdio>

#include "canvas_fixture.h"

namespace {

using CanvasPlanes = CanvasTest;

TEST_F(CanvasPlanes, LabelsCountFurtherPlanesByKindAndTitlesShowThem) {
  Canvas* canvas = MakeBlank(4, 4);
  PlaneSlot* s = canvas->planes;
  for (int isTransparency : {0, 1, 1, 0, 1}) CanvasManager.AddPlane(canvas, 0, isTransparency);
  s[5].planeFlags[kFlagLineDraw] = 1;      // a T plane turned Line Draw
  s[6].planeFlags[kFlagTransparency] = 1;  // an M plane turned Transparency
  const char* expected[8] = {"LAYER0", "Mask", "Transparency", "Mask2",
                             "Transparency1", "Line Draw1", "Transparency2", "Transparency3"};
  for (int index = 0; index < 8; ++index)
    EXPECT_EQ(CanvasManager.PlaneLabel(canvas, index), expected[index]) << index;

  EXPECT_EQ(CanvasManager.TitleText(canvas), "Standard Accuracy [LAYER0] of Untitled");
  CanvasManager.SelectPlane(canvas, 5);
  std::snprintf(canvas->fileName, kFileNameChars, "C:\\art\\ink.tsl");
  EXPECT_EQ(CanvasManager.TitleText(canvas), "Standard Accuracy [Line Draw1] of C:\\art\\ink.tsl");
}

TEST_F(CanvasPlanes, AccuracyPlaneFollowsTheActivePlane) {
  settings.doubleAccuracyDefault = 1;
  Canvas* canvas = MakeBlank(5, 3);
  PlaneSlot* s = canvas->planes;
  ASSERT_NE(s[0].accuracyPlane, nullptr);
  EXPECT_EQ(s[0].accuracyPlane->bits, 24u);
  EXPECT_EQ(CanvasManager.TitleText(canvas), "Double Accuracy [LAYER0] of Untitled");

  CanvasManager.SelectPlane(canvas, 2);
  EXPECT_EQ(s[0].accuracyPlane, nullptr);
  ASSERT_NE(s[2].accuracyPlane, nullptr);
  EXPECT_EQ(s[2].accuracyPlane->bits, 8u);
  EXPECT_EQ(CanvasManager.TitleText(canvas), "Double Accuracy [Transparency] of Untitled");
  PlaneStore.WritePixel8(s[2].accuracyPlane, 4, 2, 200);
  CanvasManager.ClearAccuracy(canvas);
  EXPECT_TRUE(AllBytes(s[2].accuracyPlane, 0));

  CanvasManager.ResetAccuracy(canvas, 0);
  EXPECT_EQ(s[2].accuracyPlane, nullptr);
  canvas->doubleAccuracy = 0;
  CanvasManager.ResetAccuracy(canvas, 1);
  EXPECT_EQ(CanvasManager.TitleText(canvas), "Standard Accuracy [Transparency] of Untitled");
}

TEST_F(CanvasPlanes, MarkModifiedTellsThePanelTheActivePlane) {
  Canvas* canvas = MakeBlank(2, 2);
  CanvasManager.SelectPlane(canvas, 1);
  CanvasManager.MarkModified(canvas);
  EXPECT_EQ(canvas->modified, 1u);
  auto told = headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw);
  ASSERT_EQ(told.size(), 1u);
  EXPECT_EQ(told[0].wParam, 1);
}

// Every byte differs: pixel (x, y) holds v = 10x + 3y, and a colour pixel
// red v + 2, green v + 1, blue v.
Rgb Ramp24(int x, int y) {
  const uint32_t v = static_cast<uint32_t>(10 * x + 3 * y);
  return {v + 2, v + 1, v};
}

void PaintRamp(Plane* plane) {
  for (int y = 0; y < plane->height; ++y)
    for (int x = 0; x < plane->width; ++x) {
      const Rgb c = Ramp24(x, y);
      if (plane->bits == 24) PlaneStore.WritePixel24(plane, x, y, c[0], c[1], c[2]);
      else PlaneStore.WritePixel8(plane, x, y, c[2]);
    }
}

TEST_F(CanvasPlanes, BlankSheetVariants) {
  Canvas* canvas = MakeBlank(5, 3);
  Plane* image = canvas->planes[0].plane;
  Plane* transparency = canvas->planes[2].plane;
  PaintRamp(image);
  PaintRamp(transparency);
  EXPECT_EQ(CanvasManager.BlankSheet(canvas, BlankSheetKind::Transparent, nullptr), 1);
  EXPECT_TRUE(AllBytes(transparency, 0));
  EXPECT_EQ(Pixel24(image, 4, 2), Ramp24(4, 2));
  EXPECT_EQ(CanvasManager.BlankSheet(canvas, BlankSheetKind::Black, nullptr), 1);
  EXPECT_TRUE(AllBytes(image, 0));
  EXPECT_TRUE(AllBytes(transparency, 255));
  PaintRamp(transparency);
  EXPECT_EQ(CanvasManager.BlankSheet(canvas, BlankSheetKind::White, nullptr), 1);
  EXPECT_TRUE(AllBytes(image, 255));
  EXPECT_TRUE(AllBytes(transparency, 255));

  // A 2 x 2 texture tiles 5 x 3.
  Plane* texture = PlaneStore.CreatePlane(2, 2, 24, 0, 0, Physical);
  PaintRamp(texture);
  PaintRamp(transparency);
  EXPECT_EQ(CanvasManager.BlankSheet(canvas, BlankSheetKind::Texture, texture), 1);
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 5; ++x) EXPECT_EQ(Pixel24(image, x, y), Ramp24(x % 2, y % 2)) << x << y;
  EXPECT_TRUE(AllBytes(transparency, 255));
  EXPECT_EQ(CanvasManager.BlankSheet(canvas, BlankSheetKind::Texture, nullptr), 0);
  PlaneStore.FreePlane(&texture);
}

TEST_F(CanvasPlanes, ClearingInitializingAndNegative) {
  Canvas* canvas = MakeBlank(4, 2);
  PlaneSlot* s = canvas->planes;
  CanvasManager.AddPlane(canvas, 0, 1);
  CanvasManager.AddPlane(canvas, 0, 1);
  s[4].planeFlags[kFlagLineDraw] = 1;
  for (int position = 0; position < 5; ++position) PaintRamp(s[position].plane);

  EXPECT_EQ(CanvasManager.ClearPlane(canvas), 0);  // not the image
  CanvasManager.SelectPlane(canvas, 3);
  EXPECT_EQ(CanvasManager.ClearPlane(canvas), 1);
  EXPECT_TRUE(AllBytes(s[3].plane, 0));
  CanvasManager.SelectPlane(canvas, 4);
  EXPECT_EQ(CanvasManager.ClearPlane(canvas), 1);
  EXPECT_TRUE(AllBytes(s[4].plane, 255));
  EXPECT_EQ(CanvasManager.InitializeMask(canvas), 1);
  EXPECT_TRUE(AllBytes(s[1].plane, 0));
  EXPECT_EQ(CanvasManager.InitializeTransparency(canvas), 1);
  EXPECT_TRUE(AllBytes(s[2].plane, 255));

  CanvasManager.SelectPlane(canvas, 0);
  EXPECT_EQ(CanvasManager.Negative(canvas), 1);
  const Rgb ramp = Ramp24(3, 1);
  EXPECT_EQ(Pixel24(s[0].plane, 3, 1), (Rgb{255 - ramp[0], 255 - ramp[1], 255 - ramp[2]}));
  CanvasManager.SelectPlane(canvas, 1);
  PlaneStore.WritePixel8(s[1].plane, 3, 1, 33);
  CanvasManager.Negative(canvas);
  EXPECT_EQ(Pixel8(s[1].plane, 3, 1), 222u);
  EXPECT_EQ(Pixel8(s[1].plane, 0, 0), 255u);

  settings.noMaskPlane = settings.noTransparencyPlane = 1;
  canvas = MakeBlank(2, 2);
  EXPECT_EQ(CanvasManager.InitializeMask(canvas), 0);
  EXPECT_EQ(CanvasManager.InitializeTransparency(canvas), 0);
  EXPECT_EQ(CanvasManager.BlankSheet(canvas, BlankSheetKind::Transparent, nullptr), 0);
}

}  // namespace
