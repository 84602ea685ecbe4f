// Copy between Channels against a slow model of the layer written from the
// rules, the dialog's lists and names, and the command around the copy.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "adjust/channel_copy.h"
#include "adjust/copy_between_channels.h"
#include "display/view_windows.h"
#include "document/undo_history.h"
#include "pixel/hsv.h"
#include "support/fixture.h"
#include "support/planes.h"

namespace {

constexpr int kCanvasW = 8, kCanvasH = 6;
// The layer reaches one column and one row past the canvas, where no
// selection raster lies.
constexpr int kLeft = 3, kTop = 2, kW = 6, kH = 5;

int Mul(int a, int b) { return std::min(255, (a * b + 128) / 255); }
int Mix(int v, int d, int w) { return std::min(255, Mul(v, 255 - w) + Mul(d, w)); }

// The layer as plain numbers: channel c of pixel i at values[c][i], with the
// channel numbers of the copy (5, brightness, is no stored channel). The
// selection is kept in canvas pixels; empty when there is no raster.
struct Model {
  std::vector<int> values[11];
  std::vector<int> selection;

  int Selection(int i) const {
    const int x = kLeft + i % kW, y = kTop + i / kW;
    if (selection.empty() || x >= kCanvasW || y >= kCanvasH) return 0;
    return selection[size_t(y * kCanvasW + x)];
  }
  int Read(int channel, int i) const {
    if (channel == kChannelBrightness)
      return std::max({values[0][size_t(i)], values[1][size_t(i)], values[2][size_t(i)]});
    if (channel == kChannelSelection) return Selection(i);
    return values[channel][size_t(i)];
  }
};

// The copy as the rules tell it, one pixel after another.
Model Copied(Model m, int origin, int destination, bool inverted, bool insideOnly) {
  if (destination == kChannelSelection && m.selection.empty())
    m.selection.assign(kCanvasW * kCanvasH, 0);
  for (int i = 0; i < kW * kH; ++i) {
    int v = m.Read(origin, i);
    if (inverted) v = 255 - v;
    const int w = insideOnly ? m.Selection(i) : 0;
    if (destination == kChannelMask) {
      const int u = Mul(255 - w, m.values[kChannelTransparency][size_t(i)]);
      int& d = m.values[kChannelMask][size_t(i)];
      d = std::min(255, Mul(d, 255 - u) + Mul(v, u));
    } else if (destination == kChannelBrightness) {
      int h, s, old, rgb[3];
      RgbToHsv(m.values[0][size_t(i)], m.values[1][size_t(i)], m.values[2][size_t(i)], &h, &s, &old,
               1);
      HsvToRgb(h, s, v, &rgb[0], &rgb[1], &rgb[2], 1);
      for (int c = 0; c < 3; ++c) m.values[c][size_t(i)] = Mix(rgb[c], m.values[c][size_t(i)], w);
    } else if (destination == kChannelSelection) {
      const int x = kLeft + i % kW, y = kTop + i / kW;
      if (x >= kCanvasW || y >= kCanvasH) continue;
      int& d = m.selection[size_t(y * kCanvasW + x)];
      d = Mix(v, d, w);
    } else {
      int& d = m.values[destination][size_t(i)];
      d = Mix(v, d, w);
    }
  }
  return m;
}

class ChannelCopy : public TeselTest {
 protected:
  // A canvas with a second layer (mask, transparency and a further mask)
  // filled at random, active at its image plane.
  Canvas* MakeLayer(bool withSelection, unsigned seed) {
    Canvas* canvas = MakeBlank(kCanvasW, kCanvasH);
    const int base = CanvasManager.AddLayer(canvas, kLeft, kTop, kW, kH);
    EXPECT_GT(base, 0);
    canvas->activePlane = base;
    const int further = CanvasManager.AddPlane(canvas, base, 0);
    canvas->planes[further].planeFlags[kFlagMask] = 1;
    std::mt19937 random(seed);
    auto bytes = [&](size_t n) {
      std::vector<uint8_t> out(n);
      // Plenty of the ends, which the rules treat apart.
      for (auto& b : out) b = uint8_t(random() % 4 == 0 ? (random() % 2) * 255 : random() % 256);
      return out;
    };
    PutPlaneBytes(Slot(canvas, kImagePosition), bytes(kW * kH * 3));
    for (int position : {kMaskPosition, kTransparencyPosition, 3})
      PutPlaneBytes(Slot(canvas, position), bytes(kW * kH));
    if (withSelection)
      canvas->selectionPlane = PlaneOfBytes(kCanvasW, kCanvasH, 8, bytes(kCanvasW * kCanvasH));
    return canvas;
  }

  static Plane* Slot(Canvas* canvas, int position) {
    return canvas->planes[canvas->activePlane - PositionOf(canvas->activePlane) + position].plane;
  }

  static Model ModelOf(Canvas* canvas) {
    Model m;
    const std::vector<uint8_t> image = PlaneBytes(Slot(canvas, kImagePosition));
    for (int c = 0; c < 3; ++c)
      for (int i = 0; i < kW * kH; ++i) m.values[c].push_back(image[size_t(i) * 3 + 2 - c]);
    const std::pair<int, int> stored[] = {{3, 1}, {4, 2}, {10, 3}};  // channel, position
    for (auto [channel, position] : stored) {
      const std::vector<uint8_t> plane = PlaneBytes(Slot(canvas, position));
      m.values[channel].assign(plane.begin(), plane.end());
    }
    const std::vector<uint8_t> selection = PlaneBytes(canvas->selectionPlane);
    m.selection.assign(selection.begin(), selection.end());
    return m;
  }
};

TEST_F(ChannelCopy, EveryChannelIntoEveryOtherFollowsTheRules) {
  const int channels[] = {0, 1, 2, 3, 4, 5, 6, 10};
  unsigned seed = 0;
  for (int origin : channels)
    for (int destination : channels)
      for (int flags = 0; flags < 8; ++flags) {
        const bool inverted = flags & 1, insideOnly = flags & 2, withSelection = flags & 4;
        Canvas* canvas = MakeLayer(withSelection, ++seed);
        const int active = canvas->activePlane;
        const Model expected = Copied(ModelOf(canvas), origin, destination, inverted, insideOnly);
        ASSERT_EQ(1, CopyChannels(canvas, origin, destination, inverted, insideOnly));
        const Model got = ModelOf(canvas);
        for (int c : {0, 1, 2, 3, 4, 10}) {
          ASSERT_EQ(expected.values[c], got.values[c])
              << "channel " << c << " from " << origin << " into " << destination << " flags "
              << flags;
        }
        ASSERT_EQ(expected.selection, got.selection)
            << origin << " into " << destination << " flags " << flags;
        EXPECT_EQ(active, canvas->activePlane);
        if (destination == kChannelSelection) {
          EXPECT_EQ(20007, canvas->selectionKind);
        }
      }
}

TEST_F(ChannelCopy, HandWorkedCases) {
  Canvas* canvas = MakeLayer(false, 99);
  // The same channel inverted is its negative, everywhere without a raster.
  std::vector<uint8_t> before = PlaneBytes(Slot(canvas, kImagePosition));
  ASSERT_EQ(1, CopyChannels(canvas, kChannelGreen, kChannelGreen, true, true));
  std::vector<uint8_t> after = PlaneBytes(Slot(canvas, kImagePosition));
  for (size_t i = 0; i < before.size(); ++i)
    EXPECT_EQ(i % 3 == 1 ? 255 - before[i] : before[i], after[i]) << i;

  // Into the mask where the layer is see-through: the mask stays.
  PutPlaneBytes(Slot(canvas, kTransparencyPosition), std::vector<uint8_t>(kW * kH, 0));
  before = PlaneBytes(Slot(canvas, kMaskPosition));
  ASSERT_EQ(1, CopyChannels(canvas, kChannelRed, kChannelMask, false, false));
  EXPECT_EQ(before, PlaneBytes(Slot(canvas, kMaskPosition)));

  // Half opaque: red 200 over mask 100 gives 100 * 127 / 255 + 200 * 128 / 255.
  PutPlaneBytes(Slot(canvas, kTransparencyPosition), std::vector<uint8_t>(kW * kH, 128));
  PutPlaneBytes(Slot(canvas, kMaskPosition), std::vector<uint8_t>(kW * kH, 100));
  PutPlaneBytes(Slot(canvas, kImagePosition), std::vector<uint8_t>(kW * kH * 3, 200));
  ASSERT_EQ(1, CopyChannels(canvas, kChannelRed, kChannelMask, false, false));
  EXPECT_EQ(50 + 100, int(PixelValue(Slot(canvas, kMaskPosition), 0, 0)));

  // A box selection becomes a bitmap one, made where there was none.
  canvas->selectionKind = 20001;
  ASSERT_EQ(1, CopyChannels(canvas, kChannelMask, kChannelSelection, false, true));
  ASSERT_NE(nullptr, canvas->selectionPlane);
  EXPECT_EQ(20007, canvas->selectionKind);
  EXPECT_EQ(0u, PixelValue(canvas->selectionPlane, 0, 0));  // outside the layer
  EXPECT_EQ(150u, PixelValue(canvas->selectionPlane, kLeft, kTop));

  EXPECT_EQ(0, CopyChannels(canvas, 7, kChannelRed, false, false));
  EXPECT_EQ(0, CopyChannels(canvas, kChannelRed, 15, false, false));
}

TEST_F(ChannelCopy, ListsAndNames) {
  Canvas* canvas = MakeLayer(false, 1);
  const int base = canvas->activePlane;
  const int transparency = CanvasManager.AddPlane(canvas, base, 1);
  canvas->planes[transparency].planeFlags[kFlagTransparency] = 1;
  canvas->activePlane = base + kMaskPosition;  // any plane of the layer serves
  EXPECT_EQ((std::vector<std::string>{"Red", "Green", "Blue", "Brightness", "Mask", "Mask2",
                                      "Transparency1", "Selection"}),
            ChannelListNames(canvas));
  const std::pair<const char*, int> names[] = {{"Red", 0},
                                               {"Green", 1},
                                               {"Blue", 2},
                                               {"Mask", 3},
                                               {"Transparency", 4},
                                               {"Brightness", 5},
                                               {"Selection", 6},
                                               {"Mask2", 10},
                                               {"Transparency1", 11},
                                               {"Transparency2", -1},
                                               {"red", -1},
                                               {"", -1}};
  for (auto [name, channel] : names) EXPECT_EQ(channel, ChannelOfName(canvas, name)) << name;

  // Without a mask the list has no "Mask".
  PlaneStore.FreePlane(&canvas->planes[base + kMaskPosition].plane);
  const std::vector<std::string> list = ChannelListNames(canvas);
  EXPECT_EQ(list.end(), std::find(list.begin(), list.end(), "Mask"));
}

TEST_F(ChannelCopy, TheCommandKeepsTheChoiceRecordsUndoAndRepaints) {
  settings.undoCount = 5;
  Canvas* canvas = MakeLayer(false, 5);
  std::vector<std::string> shown;
  ChannelCopyChoice offered;
  ChannelCopyChoice answer{"Red", "Mask", false, false};
  bool ok = true;
  adjustWindows.channelCopyDialog = [&](const std::vector<std::string>& names,
                                        ChannelCopyChoice* choice) {
    shown = names;
    offered = *choice;
    if (ok) *choice = answer;
    return ok;
  };
  int repaints = 0;
  viewWindows.invalidate = [&](Canvas*) { ++repaints; };
  PutPlaneBytes(Slot(canvas, kTransparencyPosition), std::vector<uint8_t>(kW * kH, 255));
  const std::vector<uint8_t> mask = PlaneBytes(Slot(canvas, kMaskPosition));
  UndoHistory.RecordUndo(canvas, -1, 0, -1, -1, -1, -1, 0);

  EXPECT_EQ(1, CopyBetweenChannels(canvas));
  EXPECT_TRUE(offered.insideOnly && !offered.inverted && offered.originName.empty());
  EXPECT_EQ(ChannelListNames(canvas), shown);
  std::vector<uint8_t> red;
  const std::vector<uint8_t> image = PlaneBytes(Slot(canvas, kImagePosition));
  for (size_t i = 2; i < image.size(); i += 3) red.push_back(image[i]);
  EXPECT_EQ(red, PlaneBytes(Slot(canvas, kMaskPosition)));
  EXPECT_EQ(1, repaints);
  EXPECT_TRUE(canvas->modified);

  // Undo brings the mask back, though the image plane was the active one.
  UndoHistory.Undo(canvas, 0);
  EXPECT_EQ(mask, PlaneBytes(Slot(canvas, kMaskPosition)));

  // The next opening offers the last choice; Cancel and unknown names do
  // nothing.
  ok = false;
  EXPECT_EQ(0, CopyBetweenChannels(canvas));
  EXPECT_EQ("Mask", offered.destinationName);
  EXPECT_FALSE(offered.insideOnly);
  ok = true;
  answer.destinationName = "Mask7";
  EXPECT_EQ(0, CopyBetweenChannels(canvas));
  EXPECT_EQ(mask, PlaneBytes(Slot(canvas, kMaskPosition)));
  EXPECT_EQ(1, repaints);

  // A plane the layer lacks, named all the same, is written nowhere.
  PlaneStore.FreePlane(&canvas->planes[canvas->activePlane + kTransparencyPosition].plane);
  answer.destinationName = "Transparency";
  EXPECT_EQ(1, CopyBetweenChannels(canvas));
}

}  // namespace
