#include <gtest/gtest.h>

#include "core/editors/icons.h"
#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;

TEST(IconName, IsALetterOrZz) {
  EXPECT_EQ(IconName(0), "A");
  EXPECT_EQ(IconName(25), "Z");
  EXPECT_EQ(IconName(26), "ZZ");
}

TEST(IconChoices, LieAtTheirPlaces) {
  auto image = MakeImage();
  DefaultsRecord record{};
  std::vector<SettingValue> icons;
  for (int i = 0; i < 15; ++i) {
    icons.push_back(Choice(26 - i));
  }
  StoreScreen(IconsScreen(), icons, TargetIn(*image));
  StoreScreen(IconsScreen(), icons, TargetIn(record));
  const Bytes expected = {26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16, 15, 14, 13, 12};
  EXPECT_EQ(BytesAt(*image, 10225, 15), expected);
  EXPECT_EQ(BytesAt(record, 607, 15), expected);
  EXPECT_EQ(LoadScreen(IconsScreen(), SourceIn(*image)), icons);
  EXPECT_EQ(LoadScreen(IconsScreen(), SourceIn(record)), icons);
}

TEST(IconChoices, LeaveANumberAloneThatIsNoIcon) {
  auto image = MakeImage();
  (*image)[10225] = 26;
  (*image)[10226] = 27;
  (*image)[10239] = 255;
  const auto icons = LoadScreen(IconsScreen(), SourceIn(*image));
  EXPECT_EQ(icons[0], Choice(26));
  EXPECT_EQ(icons[1], SettingValue{});
  EXPECT_EQ(icons[14], SettingValue{});
  const CloneImage before = *image;
  StoreScreen(IconsScreen(), icons, TargetIn(*image));
  EXPECT_EQ(*image, before);
}

}  // namespace
}  // namespace qz7
