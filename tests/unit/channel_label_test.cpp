#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core/image/clone_image.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

constexpr std::array kPmsLabels = {"L1", "U1", "L2", "U2", "L3", "U3", "L4", "U4", "L5",  "U5",
                                   "L6", "U6", "L7", "U7", "L8", "U8", "L9", "U9", "L10", "U10"};

std::string Label(int count, int n) { return ChannelLabel(*MakeImage(count), n); }

TEST(ChannelLabel, NamesTheLast20ChannelsAsScanLimits) {
  EXPECT_EQ(Label(240, 221), "L1");
  EXPECT_EQ(Label(240, 222), "U1");
  EXPECT_EQ(Label(240, 239), "L10");
  EXPECT_EQ(Label(240, 240), "U10");
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(Label(240, 221 + i), kPmsLabels.at(static_cast<std::size_t>(i))) << i;
  }
}

TEST(ChannelLabel, IsTheNumberInAtLeastTwoPlaces) {
  EXPECT_EQ(Label(240, 5), " 5");
  EXPECT_EQ(Label(240, 9), " 9");
  EXPECT_EQ(Label(240, 10), "10");
  EXPECT_EQ(Label(240, 220), "220");
  for (int n = 1; n <= 220; ++n) {
    EXPECT_EQ(Label(240, n), (n < 10 ? " " : "") + std::to_string(n));
  }
}

TEST(ChannelLabel, OfASpecialSlotIsItsBand) {
  constexpr std::array kBands = {"MW",    "SW",    "FM",  "TV",   "6m",
                                 "V Ham", "U Ham", "Air", "Act1", "Act2"};
  for (int n = -1; n >= -30; --n) {
    EXPECT_EQ(Label(240, n), kBands.at(static_cast<std::size_t>((-1 - n) % 10))) << n;
  }
}

TEST(ChannelLabel, IsEmptyForNumbersThatNameNoChannel) {
  EXPECT_EQ(Label(240, 0), "");
  for (int n = 241; n <= 300; ++n) {
    EXPECT_EQ(Label(240, n), "") << n;
  }
  for (int n = -31; n >= -40; --n) {
    EXPECT_EQ(Label(240, n), "") << n;
  }
}

TEST(ChannelLabel, FollowsAHostileCount) {
  struct Case {
    int count;
    int n;
    const char* label;
  };
  constexpr std::array kCases = {
      Case{300, 300, "U10"},
      Case{300, 299, "L10"},
      Case{300, 282, "U1"},
      Case{300, 281, "L1"},
      Case{300, 280, "280"},
      Case{300, 240, "240"},
      Case{300, 221, "221"},
      Case{300, 301, ""},
      Case{10, 10, "U10"},
      Case{10, 9, "L10"},
      Case{10, 2, "U6"},
      Case{10, 1, "L6"},
      Case{10, 0, ""},
      Case{10, 11, ""},
      Case{10, -1, "MW"},
      Case{0, 0, ""},
      Case{0, 1, ""},
      Case{0, -30, "Act2"},
      Case{19, 1, "U1"},
      Case{20, 1, "L1"},
      Case{21, 1, " 1"},
      Case{65'535, 1, " 1"},
      Case{65'535, 65'535, "U10"},
      Case{65'535, 65'516, "L1"},
      Case{65'535, 65'515, "65515"},
      Case{65'535, 65'536, ""},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(Label(c.count, c.n), c.label) << c.count << ": " << c.n;
  }
}

TEST(ChannelLabel, OfChannels281To300IsThePmsPairWhenTheCountIs300) {
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(Label(300, 281 + i), kPmsLabels.at(static_cast<std::size_t>(i)));
  }
}

}  // namespace
}  // namespace qz7
