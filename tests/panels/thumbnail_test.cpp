#include <tuple>

#include "document/canvas_fixture.h"
#include "panels/layer_rows.h"
#include "panels/thumbnail.h"

namespace {

using Thumbnails = CanvasTest;

std::tuple<int, int, int, int> Fit(int boxWidth, int boxHeight, int width, int height) {
  const ThumbnailFit f = FitThumbnail(boxWidth, boxHeight, width, height);
  return {f.x, f.y, f.width, f.height};
}

// The thumbnail's byte c under opacity t, worked from the rule:
// min(255, (c * t + 128) / 255 truncated, capped at 255, plus 255 - t).
uint32_t OverWhiteByHand(uint32_t c, uint32_t t) {
  return std::min(255u, std::min(255u, (c * t + 128) / 255) + (255 - t));
}

TEST_F(Thumbnails, PicturesFitTheBoxByTheLargerRatioAndAreCentred) {
  EXPECT_EQ(std::tuple(0, 0, 32, 24), Fit(32, 24, 640, 480));
  EXPECT_EQ(std::tuple(12, 0, 8, 24), Fit(32, 24, 100, 300));   // scale 12.5
  EXPECT_EQ(std::tuple(0, 4, 32, 16), Fit(32, 24, 10, 5));      // small ones grow
  EXPECT_EQ(std::tuple(0, 1, 32, 21), Fit(32, 24, 1000, 666));  // 666 / 31.25 = 21.3
  EXPECT_EQ(std::tuple(15, 0, 1, 24), Fit(32, 24, 1, 1000));    // a thin layer keeps a pixel
}

TEST_F(Thumbnails, ImagesWithTransparencyStandOverWhiteAndPlanesAsTheyAre) {
  Canvas* canvas = MakeBlank(4, 2);
  PlaneSlot* s = canvas->planes;
  // Columns 0 and 2 of row 0 are what a 2 x 1 thumbnail samples.
  PutPlaneBytes(s[0].plane,
                {200, 100, 0, 1, 1, 1, 10, 20, 30, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
  PutPlaneBytes(s[2].plane, {128, 9, 0, 9, 9, 9, 9, 9});
  PutPlaneBytes(s[1].plane, {7, 1, 77, 1, 1, 1, 1, 1});
  Plane* thumbnail = MakeThumbnail(canvas, 0, 2, 1);
  ASSERT_NE(nullptr, thumbnail);
  const std::vector<uint8_t> expected = {uint8_t(OverWhiteByHand(200, 128)),
                                         uint8_t(OverWhiteByHand(100, 128)),
                                         uint8_t(OverWhiteByHand(0, 128)),
                                         255,
                                         255,
                                         255};
  EXPECT_EQ((std::vector<uint8_t>{227, 177, 127, 255, 255, 255}), expected);
  EXPECT_EQ(expected, PlaneBytes(thumbnail));
  PlaneStore.FreePlane(&thumbnail);

  thumbnail = MakeThumbnail(canvas, 1, 2, 2);
  EXPECT_EQ((std::vector<uint8_t>{7, 77, 1, 1}), PlaneBytes(thumbnail));
  PlaneStore.FreePlane(&thumbnail);

  // Without a transparency plane the colours stay; a plane that went has none.
  PlaneStore.FreePlane(&s[2].plane);
  thumbnail = MakeThumbnail(canvas, 0, 1, 1);
  EXPECT_EQ((std::vector<uint8_t>{200, 100, 0}), PlaneBytes(thumbnail));
  PlaneStore.FreePlane(&thumbnail);
  EXPECT_EQ(nullptr, MakeThumbnail(canvas, 8, 2, 1));
}

TEST_F(Thumbnails, TheNextToMakeIsTheFirstRowWithout) {
  Canvas* canvas = MakeBlank(4, 2);
  CanvasManager.AddLayer(canvas, 0, 0, 4, 2);
  for (int index : {0, 1, 8, 9}) layerPanel.layerRows[index] = &layerPanel;  // rows stand
  EXPECT_EQ(0, NextThumbnailPlane(canvas));
  rowThumbnails[0] = MakeThumbnail(canvas, 0, 2, 1);
  rowThumbnails[1] = MakeThumbnail(canvas, 1, 2, 1);
  EXPECT_EQ(8, NextThumbnailPlane(canvas));  // 2 has no row window
  rowThumbnails[8] = MakeThumbnail(canvas, 8, 2, 1);
  rowThumbnails[9] = MakeThumbnail(canvas, 9, 2, 1);
  EXPECT_EQ(-1, NextThumbnailPlane(canvas));
  FreeThumbnail(1);
  EXPECT_EQ(std::pair(1, static_cast<Plane*>(nullptr)),
            std::pair(NextThumbnailPlane(canvas), rowThumbnails[1]));

  CanvasManager.SelectPlane(canvas, 9);
  EXPECT_FALSE(ShowsActiveMark(canvas, 9));
  settings.noThumbnailRedraw = 1;
  EXPECT_TRUE(ShowsActiveMark(canvas, 9));
  EXPECT_FALSE(ShowsActiveMark(canvas, 8));
  // The mark stands for the active plane: a worker isn't started for it.
  FreeThumbnail(9);
  rowThumbnails[1] = MakeThumbnail(canvas, 1, 2, 1);
  EXPECT_EQ(-1, NextThumbnailPlane(canvas));
}

}  // namespace
