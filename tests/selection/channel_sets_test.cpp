// The channels' set test in its vector and scalar forms against the rule
// written here, on random sets and rows of every length around the
// vector's width of 32 pixels.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "pixel/vector_paths.h"
#include "selection/channel_sets.h"
#include "support/fixture.h"

namespace {

class ChannelSetsTest : public TeselTest {};

TEST_F(ChannelSetsTest, BothFormsFollowTheRuleForEverySetAndLength) {
  std::mt19937 random(9);
  for (int round = 0; round < 40; ++round) {
    ChannelSets sets;
    // Dense and sparse sets, so that the rows pass and fail in mixture.
    const unsigned density = 1 + round % 4;
    for (auto& channel : sets.member)
      for (uint8_t& member : channel) member = random() % 5 < density ? 1 : 0;
    const int n = 1 + int(random() % 100);
    std::vector<uint8_t> bgr(size_t(n) * 3);
    for (uint8_t& byte : bgr) byte = uint8_t(random());
    std::vector<uint8_t> expected(static_cast<size_t>(n));
    for (int x = 0; x < n; ++x)
      expected[size_t(x)] = sets.member[0][bgr[3 * x]] && sets.member[1][bgr[3 * x + 1]] &&
                                    sets.member[2][bgr[3 * x + 2]]
                                ? 7
                                : 200;
    for (bool vector : {true, false}) {
      UseVectorPaths(vector);
      std::vector<uint8_t> out(static_cast<size_t>(n), 99);
      MatchChannelSets(sets, bgr.data(), n, 7, 200, out.data());
      EXPECT_EQ(out, expected) << "round " << round << (vector ? ", vector" : ", scalar");
    }
  }
  // Every byte value in every channel, alone in its set.
  std::vector<uint8_t> bgr(256 * 3);
  for (int v = 0; v < 256; ++v) bgr[3 * v] = bgr[3 * v + 1] = bgr[3 * v + 2] = uint8_t(v);
  for (int v = 0; v < 256; v += 17) {
    ChannelSets sets{};
    for (auto& channel : sets.member) channel[v] = 1;
    for (bool vector : {true, false}) {
      UseVectorPaths(vector);
      std::vector<uint8_t> out(256);
      MatchChannelSets(sets, bgr.data(), 256, 1, 0, out.data());
      for (int x = 0; x < 256; ++x) EXPECT_EQ(out[size_t(x)], x == v ? 1 : 0) << v << " at " << x;
    }
  }
}

}  // namespace
