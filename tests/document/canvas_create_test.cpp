#include <cstdio>
#include <tuple>

#include "canvas_fixture.h"
#include "document/canvas_content.h"

namespace {

using CanvasCreate = CanvasTest;

TEST_F(CanvasCreate, BlankCanvasHasOneWhiteLayerWithMaskAndTransparency) {
  settings.defaultDisplay = 1;
  settings.imageBuffer = Virtual;
  canvasSerialCount = 41;
  Canvas* canvas = MakeBlank(7, 5);
  const PlaneSlot* s = canvas->planes;
  EXPECT_EQ(1, CanvasManager.LayerCount(canvas));
  EXPECT_EQ(std::tuple(Virtual, 24u, 41u, 96),
            std::tuple(s[0].plane->kind, s[0].plane->bits, canvas->serial, canvas->dpi));
  EXPECT_TRUE(AllBytes(s[0].plane, 255) && AllBytes(s[1].plane, 0) && AllBytes(s[2].plane, 255));
  EXPECT_EQ(nullptr, s[3].plane);
  EXPECT_EQ((std::vector<std::string>{"LAYER0", "0M", "0T", "1T"}),  // "1T" held for the first further plane
            (std::vector<std::string>{s[0].name, s[1].name, s[2].name, s[3].name}));
  EXPECT_EQ(std::tuple(1, 10), std::tuple(s[0].displayMode, s[7].displayMode));
  EXPECT_STREQ("Untitled", canvas->fileName);
  EXPECT_TRUE(headless::Recorded().boxes.empty());

  settings.noMaskPlane = settings.noTransparencyPlane = 1;
  canvas = MakeBlank(4, 4);
  EXPECT_EQ(42u, canvas->serial);
  for (int position = 1; position < 8; ++position) EXPECT_EQ(nullptr, canvas->planes[position].plane);
  settings.noMaskPlane = 0;
  canvas = MakeBlank(4, 4);
  EXPECT_TRUE(canvas->planes[1].plane && !canvas->planes[2].plane);
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
  EXPECT_EQ(1, CanvasManager.MakeCanvas(canvas, nullptr));
  SetCanvasContentFill(kModeOpen, nullptr);
  EXPECT_EQ(2, CanvasManager.LayerCount(canvas));
  // The slot stays empty, which ends the layer's planes: 4 isn't looked at.
  EXPECT_TRUE(!canvas->planes[3].plane && canvas->planes[4].plane && !canvas->planes[9].plane);
  ASSERT_EQ((std::vector<std::string>{"Alpha channel [@@] is illegal, will be deleted!",
                                      "Alpha channel [x] is illegal, will be deleted!"}),
            BoxTexts());
  EXPECT_EQ("Tesel", headless::Recorded().boxes[0].caption);
  EXPECT_EQ(unsigned{platform::MbIconInformation}, headless::Recorded().boxes[0].style & 0xF0u);
}

int RefuseContent(Canvas*) { return 0; }

TEST_F(CanvasCreate, FailuresFreeEverythingAndShowTheMemoryBox) {
  // A mode with no content routine, or one that refuses, makes no canvas.
  RequestBlankCanvas(4, 4, 96);
  CanvasRequest.mode = kModeFromClipboard;
  Canvas* canvas = NewRecord();
  EXPECT_EQ(0, CanvasManager.MakeCanvas(canvas, nullptr));
  SetCanvasContentFill(kModeFromClipboard, RefuseContent);
  EXPECT_EQ(0, CanvasManager.MakeCanvas(canvas, nullptr));
  SetCanvasContentFill(kModeFromClipboard, nullptr);
  EXPECT_EQ(0, CanvasManager.LayerCount(canvas));
  EXPECT_TRUE(headless::Recorded().boxes.empty());

  // Layer 1 is too large for any plane: layer 0, made already, is freed.
  RequestBlankCanvas(4, 4, 96);
  CanvasRequest.layerCount = 2;
  CanvasRequest.width[1] = CanvasRequest.height[1] = 40000;
  CanvasRequest.bits[1] = 24;
  EXPECT_EQ(0, CanvasManager.MakeCanvas(canvas, nullptr));
  for (const PlaneSlot& slot : canvas->planes) EXPECT_EQ(nullptr, slot.plane);
  ASSERT_EQ(std::vector<std::string>{"memory error0"}, BoxTexts());
  EXPECT_EQ("Tesel", headless::Recorded().boxes[0].caption);

  settings.imageBuffer = Virtual;  // the page file refuses the image plane's mapping
  headless::Recorded().failMappings = 1;
  RequestBlankCanvas(4, 4, 96);
  EXPECT_EQ(0, CanvasManager.MakeCanvas(canvas, nullptr));
  EXPECT_EQ(0, CanvasManager.LayerCount(canvas));
  EXPECT_EQ("memory error0", LastBoxText());
}

}  // namespace
