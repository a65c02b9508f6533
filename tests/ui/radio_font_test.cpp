#include "desktop/toolkit/radio_font.h"

#include <array>
#include <utility>

#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

TEST(RadioFont, HasHeightsOfItsOwnForTheUsualResolutions) {
  for (const auto& [resolution, list, name] : {std::array{72, 16, 18},
                                               {96, 16, 18},
                                               {119, 16, 18},
                                               {120, 20, 22},
                                               {143, 20, 22},
                                               {144, 24, 27},
                                               {191, 24, 27}}) {
    EXPECT_EQ(RadioFontHeight(kListFontHeight, resolution), list) << resolution;
    EXPECT_EQ(RadioFontHeight(kNameFontHeight, resolution), name) << resolution;
  }
}

// The bitmaps of the font file themselves, not one of them enlarged by the system.
using InstalledRadioFont = WindowTest;

TEST_F(InstalledRadioFont, HasABitmapOfEachHeight) {
  const HDC device = GetDC(app.main_window);
  for (const auto& [height, width] :
       {std::pair{16, 8}, {18, 9}, {20, 10}, {22, 11}, {24, 12}, {27, 13}, {32, 16}, {36, 18}}) {
    const Font font = CreateRadioFont(device, height);
    const HGDIOBJ old = SelectObject(device, font.get());
    TEXTMETRICA metrics{};
    GetTextMetricsA(device, &metrics);
    SelectObject(device, old);
    EXPECT_EQ(metrics.tmHeight, height);
    EXPECT_EQ(metrics.tmAveCharWidth, width);
  }
  ReleaseDC(app.main_window, device);
}

TEST(RadioFont, IsShownInWholeMultiplesOnFinerScreens) {
  EXPECT_EQ(RadioFontHeight(kListFontHeight, 192), 32);
  EXPECT_EQ(RadioFontHeight(kNameFontHeight, 240), 36);
  EXPECT_EQ(RadioFontHeight(kNameFontHeight, 288), 54);
}

}  // namespace
}  // namespace qz7
