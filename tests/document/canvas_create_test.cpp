#include <cstdio>

#include "canvas_fixture.h"

namespace {

using CanvasCreate = CanvasTest;

TEST_F(CanvasCreate, BlankCanvasHasOneWhiteLayerWithMaskAndTransparency) {
  settings.defaultDisplay = 1;
  canvasSerialCount = 41;
  for (uint32_t kind : {Virtual, Physical}) {
    settings.imageBuffer = static_cast<int32_t>(kind);
    Canvas* canvas = MakeBlank(7, 5);
    const PlaneSlot* s = canvas->planes;
    EXPECT_EQ(CanvasManager.LayerCount(canvas), 1);
    EXPECT_EQ(s[0].plane->kind, kind);
    EXPECT_EQ(s[0].plane->bits, 24u);
    EXPECT_TRUE(AllBytes(s[0].plane, 255));
    EXPECT_TRUE(AllBytes(s[1].plane, 0));
    EXPECT_TRUE(AllBytes(s[2].plane, 255));
    EXPECT_EQ(s[3].plane, nullptr);
    EXPECT_STREQ(s[0].name, "LAYER0");
    EXPECT_STREQ(s[1].name, "0M");
    EXPECT_STREQ(s[2].name, "0T");
    EXPECT_STREQ(s[3].name, "1T");  // held for the first further plane
    EXPECT_EQ(s[0].displayMode, 1);
    EXPECT_EQ(s[7].displayMode, 10);
    EXPECT_EQ(s[7].width, 7);
    EXPECT_EQ(s[8].plane, nullptr);
    EXPECT_EQ(canvas->selRight, 6);
    EXPECT_EQ(canvas->selBottom, 4);
    EXPECT_EQ(canvas->dpi, 96);
    EXPECT_STREQ(canvas->fileName, "Untitled");
  }
  EXPECT_EQ(canvases[0]->serial, 41u);
  EXPECT_EQ(canvases[1]->serial, 42u);
  EXPECT_TRUE(headless::Recorded().boxes.empty());
  EXPECT_EQ(headless::Recorded().waitCursorDepth, 0);

  settings.noMaskPlane = 1;
  settings.noTransparencyPlane = 1;
  Canvas* canvas = MakeBlank(4, 4);
  EXPECT_NE(canvas->planes[0].plane, nullptr);
  for (int position = 1; position < 8; ++position) EXPECT_EQ(canvas->planes[position].plane, nullptr);
  settings.noMaskPlane = 0;
  canvas = MakeBlank(4, 4);
  EXPECT_NE(canvas->planes[1].plane, nullptr);
  EXPECT_EQ(canvas->planes[2].plane, nullptr);
}

// A loader stand-in: names planes as a file with bad plane names would.
int NameLikeABadFile(Canvas* canvas) {
  std::snprintf(canvas->planes[3].name, kPlaneNameChars, "@@");
  std::snprintf(canvas->planes[9].name, kPlaneNameChars, "x");
  return 1;
}

TEST_F(CanvasCreate, PlanesWithoutAKindLetterAreDroppedWithAMessage) {
  RequestBlankCanvas(6, 6, 72);
  CanvasRequest.mode = kModeOpen;
  CanvasRequest.layerCount = 2;
  CanvasRequest.width[1] = CanvasRequest.height[1] = 3;
  CanvasRequest.bits[1] = 24;
  CanvasRequest.planeCount[0] = 4;  // positions 1..4
  SetCanvasContentFill(kModeOpen, NameLikeABadFile);
  Canvas* canvas = NewRecord();
  EXPECT_EQ(CanvasManager.MakeCanvas(canvas, nullptr), 1);
  SetCanvasContentFill(kModeOpen, nullptr);

  EXPECT_EQ(CanvasManager.LayerCount(canvas), 2);
  EXPECT_EQ(canvas->planes[3].plane, nullptr);
  EXPECT_NE(canvas->planes[4].plane, nullptr);  // past the gap: not looked at
  EXPECT_EQ(canvas->planes[9].plane, nullptr);
  EXPECT_EQ(BoxTexts(), (std::vector<std::string>{
                            "Alpha channel [@@] is illegal, will be deleted!",
                            "Alpha channel [x] is illegal, will be deleted!"}));
  EXPECT_EQ(headless::Recorded().boxes[0].caption, "Tesel");
  EXPECT_EQ(headless::Recorded().boxes[0].style & 0xF0u, unsigned{platform::MbIconInformation});
}

int RefuseContent(Canvas*) { return 0; }

TEST_F(CanvasCreate, FailuresFreeEverythingAndShowTheMemoryBox) {
  // A mode with no content routine, or one that refuses, makes no canvas.
  RequestBlankCanvas(4, 4, 96);
  CanvasRequest.mode = kModeFromClipboard;
  Canvas* canvas = NewRecord();
  EXPECT_EQ(CanvasManager.MakeCanvas(canvas, nullptr), 0);
  SetCanvasContentFill(kModeFromClipboard, RefuseContent);
  EXPECT_EQ(CanvasManager.MakeCanvas(canvas, nullptr), 0);
  SetCanvasContentFill(kModeFromClipboard, nullptr);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 0);
  EXPECT_TRUE(headless::Recorded().boxes.empty());

  // Layer 1 is too large for any plane: layer 0, made already, is freed.
  RequestBlankCanvas(4, 4, 96);
  CanvasRequest.layerCount = 2;
  CanvasRequest.width[1] = CanvasRequest.height[1] = 40000;
  CanvasRequest.bits[1] = 24;
  EXPECT_EQ(CanvasManager.MakeCanvas(canvas, nullptr), 0);
  for (const PlaneSlot& slot : canvas->planes) EXPECT_EQ(slot.plane, nullptr);
  EXPECT_EQ(BoxTexts(), std::vector<std::string>{"memory error0"});
  EXPECT_EQ(headless::Recorded().boxes[0].caption, "Tesel");

  // The page file refuses the image plane's mapping.
  settings.imageBuffer = Virtual;
  headless::Recorded().failMappings = 1;
  RequestBlankCanvas(4, 4, 96);
  EXPECT_EQ(CanvasManager.MakeCanvas(canvas, nullptr), 0);
  EXPECT_EQ(CanvasManager.LayerCount(canvas), 0);
  EXPECT_EQ(BoxTexts().back(), "memory error0");
}

TEST_F(CanvasCreate, ActiveCanvasIsNoneWhileClosing) {
  EXPECT_EQ(ActiveCanvas(), nullptr);
  Canvas* canvas = MakeBlank(2, 2);
  SetActiveCanvas(canvas);
  EXPECT_EQ(ActiveCanvas(), canvas);
  canvas->closing = 1;
  EXPECT_EQ(ActiveCanvas(), nullptr);
  SetActiveCanvas(nullptr);
}

}  // namespace
