// Pointer routing by the order of claims and the tool table, the pointer's
// read-outs, and picking and dragging layers.
#include <string>
#include <tuple>
#include <vector>

#include "display/pick_layer.h"
#include "display/pointer_routing.h"
#include "display/smooth_zoom.h"
#include "resources/strings.h"
#include "view_fixture.h"

namespace {

using Pointer = ViewTest;

// Every route notes its name; the right-button ones decline but the popup.
struct Routes {
  Routes() {
    pointerRoutes.penMode = [this] { return penMode; };
    pointerRoutes.cloneOffset = [this] { return cloneOffset; };
    pointerRoutes.setCloneSource = Note("clone source", 1);
    pointerRoutes.stroke = [this](Canvas*, int connecting) {
      calls.push_back(connecting ? "connecting stroke" : "plain stroke");
    };
    pointerRoutes.strokeSecondForm = Note("second form", 0);
    pointerRoutes.colourPicker = Note("picker", 1);
    pointerRoutes.draftObjectPress = Note("object", 1);
    pointerRoutes.draftPointPress = Note("point", 1);
    pointerRoutes.draftRightPress = Note("draft right", 0);
    pointerRoutes.selectionPopup = Note("popup", 1);
  }
  std::function<int(Canvas*)> Note(const char* name, int answer) {
    return [this, name, answer](Canvas*) {
      calls.push_back(name);
      return answer;
    };
  }
  int penMode = 5;
  int cloneOffset = 0;
  std::vector<std::string> calls;
};

TEST_F(Pointer, PressesFollowTheClaimsThenTheToolTable) {
  Canvas* canvas = MakeBlank(50, 50);
  Routes routes;
  // (button, tool, shift, pen mode, clone offset)
  for (auto [right, tool, shift, mode, offset] : std::vector<std::array<int, 5>>{
           {0, 20005, 0, 5, 0},
           {0, 20005, 0, 1, 0},
           {0, 20000, 0, 5, 0},  // 20000 never connects
           {0, 20006, 0, 5, 0},
           {0, 20001, 0, 5, 0},
           {0, 20001, 1, 7, 0},      // Clone with Shift comes first, whatever the tool
           {0, 20000, 0, 7, -2000},  // no source yet: string 1411
           {1, 20005, 0, 5, 0},
           {1, 14003, 0, 5, 0},
           {1, 20002, 0, 5, 0}}) {
    routes.penMode = mode;
    routes.cloneOffset = offset;
    (right ? RightButtonDown : LeftButtonDown)(canvas, {tool, shift, 0, 0});
  }
  EXPECT_EQ(routes.calls,
            (std::vector<std::string>{"connecting stroke", "plain stroke", "plain stroke", "object",
                                      "point", "clone source", "second form", "picker",
                                      "draft right", "picker", "draft right", "popup"}));
  ASSERT_EQ(headless::Recorded().boxes.size(), 1u);
  EXPECT_EQ(headless::Recorded().boxes[0].text, StringText(1411));

  // An open colour-adjust window takes either button before anything but
  // the Clone pen's Shift.
  routes.calls.clear();
  routes.penMode = 5;
  pointerRoutes.colourAdjustPick = [&](Canvas*, int right) {
    routes.calls.push_back(right ? "adjust right" : "adjust left");
    return 1;
  };
  LeftButtonDown(canvas, {20005, 1, 1, 1});
  RightButtonDown(canvas, {20005, 1, 1, 1});
  EXPECT_EQ(routes.calls, (std::vector<std::string>{"adjust left", "adjust right"}));
  EXPECT_EQ(ToolRouteOf(20013), ToolRoute::DraftObject);
  EXPECT_EQ(ToolRouteOf(14008), ToolRoute::DraftPoint);
}

TEST_F(Pointer, MovesShowThePositionAndMoveTheRulerMarks) {
  Canvas* canvas = MakeBlank(100, 100);
  canvas->zoomStep = 2;
  canvas->scrollX = 10;
  canvas->scrollY = 4;
  std::vector<std::string> shown;
  viewWindows.showPosition = [&](const std::string& text) { shown.push_back(text); };
  PointerAt({{25, 69}});
  PointerMoved(canvas);  // rulers off, read-out off
  settings.displayPosition = canvas->rulersOn = 1;
  PointerMoved(canvas);
  EXPECT_EQ(shown, std::vector<std::string>{"12 34"});
  const auto h = headless::MessagesTo(platform::Window::HorizontalRuler, 1035);
  const auto v = headless::MessagesTo(platform::Window::VerticalRuler, 1035);
  ASSERT_EQ(h.size() + v.size(), 2u);
  EXPECT_EQ(h[0].lParam, 12 * 2 + 1 - 10);  // the middle of the pixel, less the scroll
  EXPECT_EQ(v[0].lParam, 34 * 2 + 1 - 4);
}

TEST_F(Pointer, PickLayerChoosesTheTopmostShownLayerAndDragsIt) {
  Canvas* canvas = MakeBlank(100, 100);
  ASSERT_EQ(CanvasManager.AddLayer(canvas, 10, 10, 30, 30), 8);
  ASSERT_EQ(CanvasManager.AddLayer(canvas, 20, 20, 30, 30), 16);
  canvas->planes[16].mixMode = 0;
  EXPECT_EQ(LayerAt(canvas, 25, 25), 1);  // layer 2 is hidden
  canvas->planes[16].mixMode = 1;
  EXPECT_EQ(
      (std::vector<int>{LayerAt(canvas, 25, 25), LayerAt(canvas, 15, 15), LayerAt(canvas, 49, 49),
                        LayerAt(canvas, 49, 50), LayerAt(canvas, 5, 5)}),
      (std::vector<int>{2, 1, 2, 0, 0}));  // the base layer counts as none

  // Right button: the layer's menu, then its command; on no layer the options of layer 0.
  std::vector<int> seen;
  pointerRoutes.layerPartsMenu = [&](Canvas*, int layer) {
    seen.push_back(layer);
    return 3;
  };
  pointerRoutes.layerCommand = [&](Canvas*, int layer, int item) {
    seen.push_back(layer * 10 + item);
  };
  pointerRoutes.layerOptions = [&](Canvas*, int layer) { seen.push_back(100 + layer); };
  PointerAt({{25, 25}, {90, 90}});
  RightButtonDown(canvas, {20005, 0, 1, 0});
  RightButtonDown(canvas, {20005, 0, 1, 0});
  canvas->activePlane = 9;
  RightButtonDown(canvas, {20005, 1, 1, 0});  // Shift: the active layer
  EXPECT_EQ(seen, (std::vector<int>{2, 23, 100, 1, 13}));
  EXPECT_EQ(headless::MessagesTo(platform::Window::LayerPanel, 1036).back().wParam, -1);
  EXPECT_EQ(canvas->modified, 1u);

  // Left button on layer 1: a drag snapped to 4, from 24 to 28 and then 32.
  int boxes = 0, pictures = 0;
  viewWindows.invertBox = [&](Canvas*, const Rect&) { ++boxes; };
  viewWindows.drawPicture = [&](Canvas*, const DibTile*, int, int, const Rect&) { ++pictures; };
  canvas->gridOn = canvas->gridSnap = 1;
  canvas->gridX = canvas->gridY = 4;
  script = {};
  PointerAt({{13, 13}, {13, 13}, {15, 14}, {19, 19}});
  held = 2;
  LeftButtonDown(canvas, {20005, 0, 1, 0});
  for (int position = 0; position < kPlanesPerLayer; ++position)
    EXPECT_EQ(std::tie(canvas->planes[8 + position].left, canvas->planes[8 + position].top),
              std::make_tuple(18, 18));
  EXPECT_EQ(boxes % 2, 0);  // every inverted box was taken off again
  EXPECT_GT(pictures, 0);
  const auto corners = headless::MessagesTo(platform::Window::StatusBar, 1024);
  EXPECT_EQ(std::tie(corners.back().wParam, corners.back().lParam),
            std::make_tuple(7, intptr_t{(47 << 16) | 47}));
  // A drag that doesn't move is a click: the layer becomes active.
  canvas->gridOn = 0;
  script = {};
  PointerAt({{19, 19}});
  held = 3;
  LeftButtonDown(canvas, {20005, 0, 1, 0});
  EXPECT_EQ(std::tie(canvas->activePlane, canvas->planes[8].left), std::make_tuple(8, 18));

  canvas->smoothZoom = 2;
  LeftButtonDown(canvas, {20005, 0, 1, 0});
  EXPECT_EQ(headless::Recorded().boxes.back().text, StringText(kStringLayersCannotMove));
}

}  // namespace
