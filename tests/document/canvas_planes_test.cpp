// Labels, titles, accuracy planes, the modified mark and the fills.
#include <cstdio>

#include "canvas_fixture.h"

namespace {

using CanvasPlanes = CanvasTest;

TEST_F(CanvasPlanes, LabelsTitlesAndAccuracyFollowTheActivePlane) {
  settings.doubleAccuracyDefault = 1;
  Canvas* canvas = MakeBlank(4, 4);
  PlaneSlot* s = canvas->planes;
  EXPECT_EQ(24u, s[0].accuracyPlane->bits);
  EXPECT_EQ("Double Accuracy [LAYER0] of Untitled", CanvasManager.TitleText(canvas));
  for (int isTransparency : {0, 1, 1, 0, 1}) CanvasManager.AddPlane(canvas, 0, isTransparency);
  // Kinds as the planes dialog sets them; the last plane has none. Line
  // Draw counts on with transparency.
  s[3].planeFlags[kFlagMask] = 1;
  s[4].planeFlags[kFlagTransparency] = 1;
  s[5].planeFlags[kFlagLineDraw] = 1;
  s[6].planeFlags[kFlagTransparency] = 1;
  std::vector<std::string> labels;
  for (int index = 0; index < 8; ++index) labels.push_back(CanvasManager.PlaneLabel(canvas, index));
  EXPECT_EQ((std::vector<std::string>{"LAYER0", "Mask", "Transparency", "Mask2", "Transparency1",
                                      "Line Draw2", "Transparency3", "その他7"}),
            labels);

  CanvasManager.SelectPlane(canvas, 5);
  EXPECT_EQ(nullptr, s[0].accuracyPlane);
  EXPECT_EQ(8u, s[5].accuracyPlane->bits);
  std::snprintf(canvas->fileName, kFileNameChars, "C:\\art\\ink.tsl");
  EXPECT_EQ("Double Accuracy [Line Draw2] of C:\\art\\ink.tsl", CanvasManager.TitleText(canvas));
  PlaneStore.WritePixel8(s[5].accuracyPlane, 3, 3, 200);
  CanvasManager.ClearAccuracy(canvas);
  EXPECT_TRUE(AllBytes(s[5].accuracyPlane, 0));
  canvas->doubleAccuracy = 0;
  CanvasManager.ResetAccuracy(canvas, 1);
  EXPECT_EQ(nullptr, s[5].accuracyPlane);
  EXPECT_EQ("Standard Accuracy [Line Draw2] of C:\\art\\ink.tsl", CanvasManager.TitleText(canvas));

  CanvasManager.MarkModified(canvas);  // the panel redraws the active plane
  auto told = headless::MessagesTo(platform::Window::LayerPanel, platform::MsgLayerRedraw);
  EXPECT_TRUE(canvas->modified && told.size() == 1 && told[0].wParam == 5);
}

// Every byte differs: pixel (x, y) holds v = 10x + 3y; a colour pixel red
// v + 2, green v + 1, blue v.
Rgb Ramp24(int x, int y) {
  const auto v = static_cast<uint32_t>(10 * x + 3 * y);
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
  EXPECT_EQ(1, CanvasManager.BlankSheet(canvas, BlankSheetKind::Transparent, nullptr));
  EXPECT_TRUE(AllBytes(transparency, 0));  // the colours stay
  EXPECT_EQ(Ramp24(4, 2), PixelRgb(image, 4, 2));
  EXPECT_EQ(1, CanvasManager.BlankSheet(canvas, BlankSheetKind::Black, nullptr));
  EXPECT_TRUE(AllBytes(image, 0) && AllBytes(transparency, 255));
  PaintRamp(transparency);
  EXPECT_EQ(1, CanvasManager.BlankSheet(canvas, BlankSheetKind::White, nullptr));
  EXPECT_TRUE(AllBytes(image, 255) && AllBytes(transparency, 255));

  Plane* texture = PlaneStore.CreatePlane(3, 2, 24, 0, 0, Physical);  // a 3 x 2 texture tiles 5 x 3
  PaintRamp(texture);
  PaintRamp(transparency);
  EXPECT_EQ(1, CanvasManager.BlankSheet(canvas, BlankSheetKind::Texture, texture));
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 5; ++x) EXPECT_EQ(Ramp24(x % 3, y % 2), PixelRgb(image, x, y)) << x << y;
  EXPECT_TRUE(AllBytes(transparency, 255));
  EXPECT_EQ(0, CanvasManager.BlankSheet(canvas, BlankSheetKind::Texture, nullptr));
  PlaneStore.FreePlane(&texture);
}

TEST_F(CanvasPlanes, ClearingInitializingAndNegative) {
  Canvas* canvas = MakeBlank(4, 2);
  PlaneSlot* s = canvas->planes;
  CanvasManager.AddPlane(canvas, 0, 1);
  CanvasManager.AddPlane(canvas, 0, 1);
  s[4].planeFlags[kFlagLineDraw] = 1;
  for (int position = 0; position < 5; ++position) PaintRamp(s[position].plane);
  EXPECT_EQ(0, CanvasManager.ClearPlane(canvas));  // not the image
  CanvasManager.SelectPlane(canvas, 3);
  EXPECT_EQ(1, CanvasManager.ClearPlane(canvas));
  CanvasManager.SelectPlane(canvas, 4);  // a Line Draw plane clears to white
  EXPECT_EQ(1, CanvasManager.ClearPlane(canvas));
  EXPECT_EQ(2, CanvasManager.InitializeMask(canvas) + CanvasManager.InitializeTransparency(canvas));
  EXPECT_TRUE(AllBytes(s[1].plane, 0) && AllBytes(s[2].plane, 255) && AllBytes(s[3].plane, 0) &&
              AllBytes(s[4].plane, 255));
  CanvasManager.SelectPlane(canvas, 0);
  EXPECT_EQ(1, CanvasManager.Negative(canvas));
  const Rgb ramp = Ramp24(3, 1);
  EXPECT_EQ((Rgb{255 - ramp[0], 255 - ramp[1], 255 - ramp[2]}), PixelRgb(s[0].plane, 3, 1));

  settings.noMaskPlane = settings.noTransparencyPlane = 1;  // planes that aren't there
  canvas = MakeBlank(2, 2);
  EXPECT_EQ(0, CanvasManager.InitializeMask(canvas) + CanvasManager.InitializeTransparency(canvas) +
                   CanvasManager.BlankSheet(canvas, BlankSheetKind::Transparent, nullptr));
}

}  // namespace
