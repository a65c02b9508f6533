#include <gtest/gtest.h>

#include "core/editors/icons.h"
#include "tests/unit/editor_fixture.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

TEST(IconName, IsALetterOrZz) {
  EXPECT_EQ(IconName(0), "A");
  EXPECT_EQ(IconName(25), "Z");
  EXPECT_EQ(IconName(26), "ZZ");
}

TEST(IconChoices, LieAtTheirPlaces) {
  auto image = MakeImage();
  DefaultsRecord record{};
  IconChoices choices;
  for (int i = 0; i < 15; ++i) {
    ChooseIcon(choices, i, 26 - i);
  }
  StoreIcons(choices, TargetIn(*image));
  StoreIcons(choices, TargetIn(record));
  const Bytes expected = {26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16, 15, 14, 13, 12};
  EXPECT_EQ(BytesAt(*image, 10225, 15), expected);
  EXPECT_EQ(Bytes(record.begin() + 607, record.begin() + 622), expected);
  EXPECT_EQ(LoadIcons(SourceIn(*image)).icons, choices.icons);
  EXPECT_EQ(LoadIcons(SourceIn(record)).icons, choices.icons);
}

TEST(IconChoices, LeaveANumberAloneThatIsNoIcon) {
  auto image = MakeImage();
  (*image)[10225] = 26;
  (*image)[10226] = 27;
  (*image)[10239] = 255;
  const IconChoices choices = LoadIcons(SourceIn(*image));
  EXPECT_EQ(choices.icons[0], 26);
  EXPECT_EQ(choices.icons[1], std::nullopt);
  EXPECT_EQ(choices.icons[14], std::nullopt);
  const CloneImage before = *image;
  StoreIcons(choices, TargetIn(*image));
  EXPECT_EQ(*image, before);
}

TEST(IconChoices, KnowThatOneWasMade) {
  IconChoices choices = LoadIcons(SourceIn(*MakeImage()));
  EXPECT_FALSE(choices.changed);
  ChooseIcon(choices, 14, 3);
  EXPECT_TRUE(choices.changed);
  EXPECT_EQ(choices.icons[14], 3);
}

TEST(IconChoices, OpenWithTheDefaultsWhereThePreferenceSaysSoAndOkStoresThem) {
  auto image = MakeImage();
  DefaultsRecord record{};
  record[607] = 5;
  const IconChoices choices = LoadIcons(OpeningSource(*image, record, true));
  EXPECT_EQ(choices.icons[0], 5);
  StoreIcons(choices, TargetIn(*image));
  EXPECT_EQ((*image)[10225], 5);
}

}  // namespace
}  // namespace qz7
