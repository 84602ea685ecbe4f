// The pen size list: adding up to its limit, with the message past it,
// sorting by width, picking and deleting.
#include "paint/pen_sizes.h"
#include "settings/number_lists.h"
#include "tip_test_support.h"

namespace {

using namespace tiptest;

class SizeListTest : public PenTest {
 protected:
  void SetUp() override {
    PenTest::SetUp();
    penSizes.Clear();
    penSizes.column[0][0] = penSizes.column[1][0] = 1;
  }
  std::vector<std::pair<int, int>> Entries() {
    std::vector<std::pair<int, int>> entries;
    for (int i = 0; i < penSizes.Count(); ++i)
      entries.emplace_back(penSizes.column[0][i], penSizes.column[1][i]);
    return entries;
  }
};

TEST_F(SizeListTest, AddingStopsAfterIndex45WithTheMessage) {
  for (int width = 2; width <= 46; ++width) ASSERT_EQ(1, AddPenSize(width, 3));
  ASSERT_EQ(46, penSizes.Count());  // indices 0 to 45
  EXPECT_TRUE(headless::Recorded().boxes.empty());

  EXPECT_EQ(0, AddPenSize(100, 100));
  EXPECT_EQ(46, penSizes.Count());
  ASSERT_EQ(1u, headless::Recorded().boxes.size());
  EXPECT_EQ("これ以上追加できません", headless::Recorded().boxes[0].text);
  EXPECT_EQ("Tesel", headless::Recorded().boxes[0].caption);

  EXPECT_EQ(1, AddPenSize(20, 3));  // already there: no new place needed
  EXPECT_EQ(46, penSizes.Count());
  EXPECT_EQ(1u, headless::Recorded().boxes.size());
  EXPECT_EQ(-1, penSizes.column[0][46]);
}

TEST_F(SizeListTest, AddSortsByWidthKeepingTheOrderOfEqualWidths) {
  AddPenSize(9, 1);
  AddPenSize(5, 7);
  AddPenSize(5, 2);
  AddPenSize(5, 7);
  AddPenSize(0, 400);  // each side within 1..255
  std::vector<std::pair<int, int>> expected = {{1, 1}, {1, 255}, {5, 7}, {5, 2}, {9, 1}};
  EXPECT_EQ(expected, Entries());

  pen.radiusX = 2.7;  // trunc(6.4) x trunc(1.4)
  pen.radiusY = 0.2;
  AddCurrentPenSize();
  EXPECT_EQ((std::pair{6, 1}), Entries()[4]);
  EXPECT_EQ("6 x 1", PenSizeLabel(4));
}

TEST_F(SizeListTest, PickingSetsTheRadiiAndRebuildsTheTip) {
  AddPenSize(7, 4);
  ASSERT_EQ(1, PickPenSize(1));
  EXPECT_EQ(3.0, pen.radiusX);
  EXPECT_EQ(1.5, pen.radiusY);
  ASSERT_NE(nullptr, pen.tipHigh);
  EXPECT_EQ(8, pen.tipHigh->width);
  EXPECT_EQ(4, pen.tipHigh->height);
  EXPECT_EQ(0, PickPenSize(2));
  EXPECT_EQ("", PenSizeLabel(2));
}

TEST_F(SizeListTest, DeleteAsksAndClosesTheGap) {
  AddPenSize(3, 3);
  AddPenSize(5, 5);
  headless::Recorded().boxAnswers = {platform::IdNo, platform::IdYes};
  EXPECT_EQ(0, DeletePenSize(1));
  EXPECT_EQ(3, penSizes.Count());
  EXPECT_EQ(1, DeletePenSize(1));
  EXPECT_EQ((std::vector<std::pair<int, int>>{{1, 1}, {5, 5}}), Entries());
  EXPECT_EQ(-1, penSizes.column[1][2]);
  ASSERT_EQ(2u, headless::Recorded().boxes.size());
  EXPECT_EQ("The selected size will be deleted. Okay?", headless::Recorded().boxes[1].text);
  EXPECT_EQ(0, DeletePenSize(5));
  EXPECT_EQ(2u, headless::Recorded().boxes.size());
}

}  // namespace
