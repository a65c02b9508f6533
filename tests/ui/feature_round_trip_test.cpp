#include <random>

#include "tests/ui/feature_fixture.h"

// Every editor opened on bytes of any value, and closed with OK without a touch.
namespace qz7 {
namespace {

class FeatureRoundTrip : public FeatureDialogTest {
 protected:
  FeatureRoundTrip() {
    std::mt19937 random(7);
    for (std::size_t i = 10'114; i < 10'400; ++i) {
      Image()[i] = static_cast<std::uint8_t>(random());
    }
    for (std::size_t i = 10'502; i < 10'507; ++i) {
      Image()[i] = static_cast<std::uint8_t>(random());
    }
    LoadMainDialog(Image());
    ReadMainControls(Image());
  }

  static void OpenAndOk(int command) {
    Run(command, [](HWND dialog) { Press(dialog, IDOK); });
  }
};

TEST_F(FeatureRoundTrip, SettingsClearWhatStandsBehindTheEndOfTheSymbolText) {
  Put(Image(), 10'244, {'a', 0x9A, 0x81, 0xB1, 0, 'x', 'y', 0xFF});
  CloneImage wanted = Image();
  Put(wanted, 10'249, {0, 0, 0});
  OpenAndOk(CM_SETTINGS);
  EXPECT_EQ(Image(), wanted);
}

TEST_F(FeatureRoundTrip, SettingsKeepEverySymbolCodeOfTheRadio) {
  Put(Image(), 10'244, {0x9A, 0x97, 0x16, 0x3D, 0x10, 0x2D, 0x8F, 0xFF});
  const CloneImage before = Image();
  OpenAndOk(CM_SETTINGS);
  EXPECT_EQ(Image(), before);
}

TEST_F(FeatureRoundTrip, VornMakesUnknownCodesBlanksAndTheFlagOne) {
  Put(Image(), 10'207, {200, 43, 44, 97, 254, 0, 0xFF, 99});
  CloneImage wanted = Image();
  Put(wanted, 10'207, {1, 43, 36, 36, 36, 0, 0xFF, 99});
  OpenAndOk(CM_VORN);
  EXPECT_EQ(Image(), wanted);
}

TEST_F(FeatureRoundTrip, AutodialKeepsTheLowHalvesAndClearsWhatStandsBehindTheEnd) {
  CloneImage wanted = Image();
  for (std::size_t memory = 10'252; memory < 10'396; memory += 16) {
    bool ended = false;
    for (std::size_t i = memory; i < memory + 16; ++i) {
      ended = ended || wanted[i] == 0xFF;
      wanted[i] = ended ? 0xFF : wanted[i] & 0x0F;
    }
  }
  OpenAndOk(CM_AUTODIAL);
  EXPECT_EQ(Image(), wanted);
}

TEST_F(FeatureRoundTrip, WxNamesKeepEveryByteButABlankAtTheEnd) {
  for (int first = 1; first < 256; first += 80) {
    for (int i = 0; i < 80; ++i) {
      const int byte = std::min(first + i, 255);
      Image()[10'114U + static_cast<std::size_t>(i)] =
          static_cast<std::uint8_t>(byte == ' ' ? 'x' : byte);
    }
    const CloneImage before = Image();
    OpenAndOk(CM_WX_NAMES);
    EXPECT_EQ(Image(), before) << first;
  }
}

TEST_F(FeatureRoundTrip, WxNamesPadWhatEndsWithA0Byte) {
  for (std::size_t i = 0; i < 80; ++i) {
    Image()[10'114 + i] = 'n';
  }
  Put(Image(), 10'122, {'a', ' ', 0, 'b', ' ', ' ', ' ', ' '});
  CloneImage wanted = Image();
  Put(wanted, 10'122, BytesOf("a       "));
  OpenAndOk(CM_WX_NAMES);
  EXPECT_EQ(Image(), wanted);
}

TEST_F(FeatureRoundTrip, IconSelectRewritesNothing) {
  const CloneImage before = Image();
  OpenAndOk(CM_ICON_SELECT);
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
}

}  // namespace
}  // namespace qz7
