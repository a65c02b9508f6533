#include <gtest/gtest.h>

#include "core/editors/vorn.h"
#include "tests/unit/editor_fixture.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

Bytes Encoded(const std::string& text, Bytes field = Bytes(16, 0xFF)) {
  EncodeIdentifier(text, field);
  return field;
}

TEST(VornIdentifier, HasACodeForEachCharacterOfItsSet) {
  const std::string characters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ ()+-=*/";
  ASSERT_EQ(characters.size(), 44U);
  for (std::size_t i = 0; i < characters.size(); ++i) {
    EXPECT_EQ(Encoded(characters.substr(i, 1))[0], i);
    const Bytes code = {static_cast<std::uint8_t>(i)};
    EXPECT_EQ(DecodeIdentifier(code), characters.substr(i, 1));
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
  const Bytes codes = {10, 43, 44, 0x61, 0xFE, 11, 0xFF, 12};
  EXPECT_EQ(DecodeIdentifier(codes), "A/   B");
}

TEST(VornIdentifier, EndsAtItsMarkOrAfterSixteenCodes) {
  EXPECT_EQ(DecodeIdentifier(Bytes(16, 0xFF)), "");
  EXPECT_EQ(DecodeIdentifier(Bytes(16, 1)), std::string(16, '1'));
  EXPECT_EQ(DecodeIdentifier(Bytes(20, 1)), std::string(16, '1'));
}

TEST(VornIdentifier, KeepsTheTailOfALongerOneWanted) {
  const Bytes longer = Encoded("ABCDEF");
  EXPECT_EQ(DecodeIdentifier(Encoded("XY", longer)), "XYCDEF");
  EXPECT_EQ(Encoded("", longer), longer);
}

TEST(VornIdentifier, TakesSixteenCharactersAtMost) {
  EXPECT_EQ(Encoded(std::string(17, '7')), Bytes(16, 7));
}

TEST(Vorn, LiesAtItsPlaces) {
  auto image = MakeImage();
  DefaultsRecord record{};
  VornControls controls;
  controls.mode = 2;
  controls.second_choice = true;
  controls.flag = true;
  controls.identifier = "AB";
  StoreVorn(controls, TargetIn(*image));
  StoreVorn(controls, TargetIn(record));
  EXPECT_EQ((*image)[10205], 2);
  EXPECT_EQ((*image)[10506], 0x08);
  EXPECT_EQ((*image)[10207], 1);
  EXPECT_EQ(BytesAt(*image, 10208, 3), (Bytes{10, 11, 0}));
  EXPECT_EQ(record[587], 2);
  EXPECT_EQ(record[798], 0x08);
  EXPECT_EQ(record[589], 1);
  EXPECT_EQ(Bytes(record.begin() + 590, record.begin() + 593), (Bytes{10, 11, 0}));
}

TEST(Vorn, ShowsWhatIsStored) {
  auto image = MakeImage();
  (*image)[10205] = 1;
  (*image)[10506] = 0xF7;
  (*image)[10207] = 1;
  PutBytes(*image, 10208, {1, 2, 0xFF});
  const VornControls controls = LoadVorn(SourceIn(*image));
  EXPECT_EQ(controls.mode, 1);
  EXPECT_EQ(controls.second_choice, false);
  EXPECT_TRUE(controls.flag);
  EXPECT_EQ(controls.identifier, "12");
}

TEST(Vorn, LeavesAModeAloneThatIsNone) {
  auto image = MakeImage();
  (*image)[10205] = 3;
  const VornControls controls = LoadVorn(SourceIn(*image));
  EXPECT_EQ(controls.mode, std::nullopt);
  StoreVorn(controls, TargetIn(*image));
  EXPECT_EQ((*image)[10205], 3);
}

TEST(Vorn, OwnsOneBitOfTheSwitches) {
  for (const int others : {0x00, 0xF7}) {
    auto image = MakeImage();
    (*image)[10506] = static_cast<std::uint8_t>(others);
    VornControls controls;
    for (const bool second : {true, false}) {
      controls.second_choice = second;
      StoreVorn(controls, TargetIn(*image));
      EXPECT_EQ((*image)[10506], others | (second ? 0x08 : 0));
    }
  }
}

TEST(Vorn, StoresItsFlagAs0Or1) {
  auto image = MakeImage();
  (*image)[10207] = 0x80;
  VornControls controls = LoadVorn(SourceIn(*image));
  EXPECT_TRUE(controls.flag);
  StoreVorn(controls, TargetIn(*image));
  EXPECT_EQ((*image)[10207], 1);
  controls.flag = false;
  StoreVorn(controls, TargetIn(*image));
  EXPECT_EQ((*image)[10207], 0);
}

}  // namespace
}  // namespace qz7
