#include <gtest/gtest.h>

#include "core/editors/vorn.h"
#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;

Bytes Encoded(const std::string& text, const Bytes& field = Bytes(16, 0xFF)) {
  auto image = MakePatternImage();
  PutBytes(*image, 10208, field);
  CloneImage wanted = *image;
  EXPECT_EQ(Put("vorn-identifier", Text(text), *image), "");
  const Bytes encoded = BytesAt(*image, 10208, 16);
  PutBytes(wanted, 10208, encoded);
  EXPECT_EQ(*image, wanted);
  return encoded;
}

std::string Decoded(const Bytes& codes) {
  auto image = MakeImage();
  PutBytes(*image, 10208, codes);
  return Shown("vorn-identifier", *image).text;
}

TEST(VornIdentifier, HasACodeForEachCharacterOfItsSet) {
  const std::string characters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ ()+-=*/";
  ASSERT_EQ(characters.size(), 44U);
  for (std::size_t i = 0; i < characters.size(); ++i) {
    EXPECT_EQ(Encoded(characters.substr(i, 1))[0], i);
    EXPECT_EQ(Decoded({static_cast<std::uint8_t>(i), 0xFF}), characters.substr(i, 1));
  }
}

TEST(VornIdentifier, FoldsToUpperCase) {
  EXPECT_EQ(Encoded("abz"), (Bytes{10, 11, 35, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                   0xFF, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(Encoded("abc")[2], 12);
}

TEST(VornIdentifier, StoresACharacterOutsideTheSetAs61Wanted) {
  const Bytes field = Encoded("A.\xE4@[`{");
  EXPECT_EQ(Bytes(field.begin(), field.begin() + 8),
            (Bytes{10, 0x61, 0x61, 0x61, 0x61, 0x61, 0x61, 0xFF}));
}

TEST(VornIdentifier, ShowsACodeOutsideTheSetAsABlank) {
  EXPECT_EQ(Decoded({10, 43, 44, 0x61, 0xFE, 11, 0xFF, 12}), "A/   B");
}

TEST(VornIdentifier, EndsAtItsMarkOrAfterSixteenCodes) {
  EXPECT_EQ(Decoded(Bytes(16, 0xFF)), "");
  EXPECT_EQ(Decoded(Bytes(17, 1)), std::string(16, '1'));
}

TEST(VornIdentifier, KeepsTheTailOfALongerOneWanted) {
  const Bytes longer = Encoded("ABCDEF");
  EXPECT_EQ(Decoded(Encoded("XY", longer)), "XYCDEF");
  EXPECT_EQ(Encoded("", longer), longer);
}

TEST(VornIdentifier, TakesSixteenCharactersAtMost) {
  EXPECT_EQ(Encoded(std::string(17, '7')), Bytes(16, 7));
  EXPECT_EQ(Row("vorn-identifier").text.longest, 16U);
}

TEST(Vorn, LiesAtItsPlaces) {
  auto image = MakeImage();
  DefaultsRecord record{};
  const std::vector<SettingValue> values = {Choice(2), Choice(1), Choice(1), Text("AB")};
  EXPECT_EQ(StoreScreen(VornScreen(), values, TargetIn(*image)), std::nullopt);
  EXPECT_EQ(StoreScreen(VornScreen(), values, TargetIn(record)), std::nullopt);
  EXPECT_EQ((*image)[10205], 2);
  EXPECT_EQ((*image)[10506], 0x08);
  EXPECT_EQ((*image)[10207], 1);
  EXPECT_EQ(BytesAt(*image, 10208, 3), (Bytes{10, 11, 0}));
  EXPECT_EQ(record[587], 2);
  EXPECT_EQ(record[798], 0x08);
  EXPECT_EQ(record[589], 1);
  EXPECT_EQ(BytesAt(record, 590, 3), (Bytes{10, 11, 0}));
}

TEST(Vorn, ShowsWhatIsStored) {
  auto image = MakeImage();
  (*image)[10205] = 1;
  (*image)[10506] = 0xF7;
  (*image)[10207] = 1;
  PutBytes(*image, 10208, {1, 2, 0xFF});
  EXPECT_EQ(LoadScreen(VornScreen(), SourceIn(*image)),
            (std::vector<SettingValue>{Choice(1), Choice(0), Choice(1), Text("12")}));
}

TEST(Vorn, LeavesAModeAloneThatIsNone) {
  auto image = MakeImage();
  (*image)[10205] = 3;
  EXPECT_EQ(Shown("vorn-mode", *image), SettingValue{});
  Put("vorn-mode", {}, *image);
  EXPECT_EQ((*image)[10205], 3);
}

TEST(Vorn, OwnsOneBitOfTheSwitches) {
  for (const int others : {0x00, 0xF7}) {
    auto image = MakeImage();
    (*image)[10506] = static_cast<std::uint8_t>(others);
    Put("vorn-switch", Choice(1), *image);
    EXPECT_EQ((*image)[10506], others | 0x08);
    Put("vorn-switch", Choice(0), *image);
    EXPECT_EQ((*image)[10506], others);
  }
}

TEST(Vorn, StoresItsFlagAs0Or1) {
  auto image = MakeImage();
  (*image)[10207] = 0x80;
  EXPECT_EQ(Shown("vorn-flag", *image), Choice(1));
  Put("vorn-flag", Choice(1), *image);
  EXPECT_EQ((*image)[10207], 1);
  Put("vorn-flag", Choice(0), *image);
  EXPECT_EQ((*image)[10207], 0);
}

}  // namespace
}  // namespace qz7
