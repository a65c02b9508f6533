#include "core/files/window_place.h"

#include <gtest/gtest.h>

#include "tests/unit/seams.h"

namespace qz7 {
namespace {

TEST(WindowPlace, ComesBackFromThePreferences) {
  const WindowPlace place{.left = -1200, .top = 30, .width = 640, .height = 480};
  WriteWindowPlace("Place", place);
  EXPECT_EQ(test_seams.profile["Place"], "-1200 30 640 480");
  EXPECT_EQ(ReadWindowPlace("Place"), place);
}

TEST(WindowPlace, IsNoneForATextThatIsNone) {
  EXPECT_EQ(ReadWindowPlace("Place"), std::nullopt);
  for (const char* text : {"", "1 2 3", "1 2 3 x", "1 2 0 4", "1 2 3 -4", "1 2 3 4 5",
                           "1 2 99999999999999999999 4", "a b c d"}) {
    test_seams.profile["Place"] = text;
    EXPECT_EQ(ReadWindowPlace("Place"), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace qz7
