#include "desktop/toolkit/radio_font.h"

#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

TEST(RadioFont, HasItsOwnHeightsUpToOneAndAHalfTimesTheUsualResolution) {
  for (const int resolution : {72, 96, 120, 144}) {
    EXPECT_EQ(RadioFontHeight(kListFontHeight, resolution), 16);
    EXPECT_EQ(RadioFontHeight(kNameFontHeight, resolution), 18);
  }
}

TEST(RadioFont, IsShownInWholeMultiplesOnFinerScreens) {
  EXPECT_EQ(RadioFontHeight(kListFontHeight, 191), 16);
  EXPECT_EQ(RadioFontHeight(kListFontHeight, 192), 32);
  EXPECT_EQ(RadioFontHeight(kNameFontHeight, 240), 36);
  EXPECT_EQ(RadioFontHeight(kNameFontHeight, 288), 54);
}

}  // namespace
}  // namespace qz7
