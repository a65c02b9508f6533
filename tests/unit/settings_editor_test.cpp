#include <gtest/gtest.h>

#include "core/editors/settings.h"
#include "tests/unit/editor_fixture.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

using Choice = std::optional<int> SettingsControls::*;

SettingsControls Loaded(const CloneImage& image) { return LoadSettings(SourceIn(image)); }

// The byte that a list choice is stored as, in the image and in the defaults record.
void ExpectChoice(Choice choice, int position, std::size_t image_offset, std::size_t record_offset,
                  int byte) {
  SCOPED_TRACE(image_offset);
  auto image = MakeImage();
  DefaultsRecord record{};
  SettingsControls controls;
  controls.*choice = position;
  StoreSettings(controls, TargetIn(*image));
  StoreSettings(controls, TargetIn(record));
  EXPECT_EQ((*image)[image_offset], byte);
  EXPECT_EQ(record[record_offset], byte);
  EXPECT_EQ(Loaded(*image).*choice, position);
  EXPECT_EQ(LoadSettings(SourceIn(record)).*choice, position);
}

void ExpectNoChoice(Choice choice, std::size_t image_offset, int byte) {
  SCOPED_TRACE(image_offset);
  auto image = MakeImage();
  (*image)[image_offset] = static_cast<std::uint8_t>(byte);
  const SettingsControls controls = Loaded(*image);
  EXPECT_EQ(controls.*choice, std::nullopt);
  const CloneImage before = *image;
  StoreSettings(controls, TargetIn(*image));
  EXPECT_EQ((*image)[image_offset], before[image_offset]);
}

TEST(SettingsLists, HoldTheirTexts) {
  EXPECT_EQ(LevelATexts().size(), 16U);
  EXPECT_EQ(LevelATexts().front(), "0");
  EXPECT_EQ(LevelATexts().back(), "15");
  EXPECT_EQ(LevelBTexts().size(), 9U);
  EXPECT_EQ(LevelBTexts().back(), "8");
  EXPECT_EQ(ScaleTexts().size(), 10U);
  EXPECT_EQ(ScaleTexts().front(), "1");
  EXPECT_EQ(ScaleTexts().back(), "10");
  EXPECT_EQ(TimeTexts().size(), 145U);
  EXPECT_EQ(TimeTexts()[0], " 00:00");
  EXPECT_EQ(TimeTexts()[1], " 00:10");
  EXPECT_EQ(TimeTexts()[6], " 01:00");
  EXPECT_EQ(TimeTexts()[77], " 12:50");
  EXPECT_EQ(TimeTexts()[144], " 24:00");
  EXPECT_EQ(
      std::vector<std::string>(kSensorTexts.begin(), kSensorTexts.end()),
      (std::vector<std::string>{"None", "Temp", "Baro", "Alti", "Temp+Baro", "Temp+Alti", "All"}));
  EXPECT_EQ(std::vector<std::string>(kSymbolTexts.begin(), kSymbolTexts.end()),
            (std::vector<std::string>{" \x9A", " \x97", " \x16", " =", " \x10", " -", "Chr"}));
}

TEST(Settings, StoreEveryListAtItsPlace) {
  ExpectChoice(&SettingsControls::level_a, 0, 10502, 794, 0);
  ExpectChoice(&SettingsControls::level_a, 15, 10502, 794, 15);
  ExpectChoice(&SettingsControls::level_b, 8, 10503, 795, 8);
  ExpectChoice(&SettingsControls::scale, 0, 10194, 576, 6);
  ExpectChoice(&SettingsControls::scale, 9, 10194, 576, 15);
  ExpectChoice(&SettingsControls::sensor_display, 6, 10224, 606, 6);
  ExpectChoice(&SettingsControls::time_of_day, 144, 10242, 624, 144);
  ExpectChoice(&SettingsControls::display_symbol, 6, 10243, 625, 6);
}

TEST(Settings, LeaveAByteAloneThatIsOnNoList) {
  ExpectNoChoice(&SettingsControls::level_a, 10502, 16);
  ExpectNoChoice(&SettingsControls::level_b, 10503, 9);
  ExpectNoChoice(&SettingsControls::scale, 10194, 5);
  ExpectNoChoice(&SettingsControls::scale, 10194, 16);
  ExpectNoChoice(&SettingsControls::sensor_display, 10224, 7);
  ExpectNoChoice(&SettingsControls::time_of_day, 10242, 145);
  ExpectNoChoice(&SettingsControls::display_symbol, 10243, 7);
  ExpectNoChoice(&SettingsControls::display_symbol, 10243, 255);
}

TEST(Settings, ShowScale6As1) {
  auto image = MakeImage();
  (*image)[10194] = 6;
  EXPECT_EQ(ScaleTexts()[static_cast<std::size_t>(*Loaded(*image).scale)], "1");
}

TEST(Settings, StoreNumbersHighByteFirst) {
  auto image = MakeImage();
  DefaultsRecord record{};
  SettingsControls controls;
  controls.number_a = "300";
  controls.number_b = "999";
  StoreSettings(controls, TargetIn(*image));
  StoreSettings(controls, TargetIn(record));
  EXPECT_EQ(BytesAt(*image, 10196, 4), (Bytes{0x01, 0x2C, 0x03, 0xE7}));
  EXPECT_EQ(Bytes(record.begin() + 578, record.begin() + 582), (Bytes{0x01, 0x2C, 0x03, 0xE7}));
  EXPECT_EQ(Loaded(*image).number_a, "300");
  EXPECT_EQ(Loaded(*image).number_b, "999");
}

TEST(Settings, ReadNumbersUpToTheFirstCharacterThatIsNoDigit) {
  struct Row {
    const char* text;
    Bytes bytes;
  };
  for (const Row& row : std::vector<Row>{{"", {0, 0}},
                                         {"x", {0, 0}},
                                         {"1x2", {0, 1}},
                                         {"-1", {0, 0}},
                                         {" 12", {0, 12}},
                                         {"007", {0, 7}},
                                         {"65535", {0xFF, 0xFF}},
                                         {"65536", {0, 0}},
                                         {"65792", {1, 0}},
                                         {"999999999", {0xC9, 0xFF}},
                                         {"9999999990", {0xC9, 0xFF}}}) {
    auto image = MakeImage();
    SettingsControls controls;
    controls.number_a = row.text;
    StoreSettings(controls, TargetIn(*image));
    EXPECT_EQ(BytesAt(*image, 10196, 2), row.bytes) << row.text;
  }
}

TEST(Settings, ShowNumbersBeyondThreeDigits) {
  auto image = MakeImage();
  PutBytes(*image, 10196, {0xFF, 0xFF, 0x27, 0x10});
  EXPECT_EQ(Loaded(*image).number_a, "65535");
  EXPECT_EQ(Loaded(*image).number_b, "10000");
}

TEST(Settings, StoreTheSymbolTextWithZerosBehindIt) {
  auto image = MakeImage();
  DefaultsRecord record;
  record.fill(0xEE);
  PutBytes(*image, 10244, Bytes(8, 0xEE));
  SettingsControls controls;
  controls.symbol_text = "AB";
  StoreSettings(controls, TargetIn(*image));
  StoreSettings(controls, TargetIn(record));
  EXPECT_EQ(BytesAt(*image, 10244, 8), (Bytes{'A', 'B', 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Bytes(record.begin() + 626, record.begin() + 634), (Bytes{'A', 'B', 0, 0, 0, 0, 0, 0}));
  controls.symbol_text = "ABCDEFGHI";
  StoreSettings(controls, TargetIn(*image));
  EXPECT_EQ(BytesAt(*image, 10244, 9), (Bytes{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 0}));
}

TEST(Settings, ShowTheSymbolTextUpToItsFirstZero) {
  auto image = MakeImage();
  PutBytes(*image, 10244, {'A', 0x9A, 0, 'B', 0, 0, 0, 0});
  EXPECT_EQ(Loaded(*image).symbol_text, "A\x9A");
  PutBytes(*image, 10244, Bytes(8, 'Z'));
  EXPECT_EQ(Loaded(*image).symbol_text, "ZZZZZZZZ");
}

TEST(Settings, KeepTheSymbolTextWhenAnotherSymbolIsChosen) {
  auto image = MakeImage();
  PutBytes(*image, 10244, {'A', 'B', 0, 0, 0, 0, 0, 0});
  (*image)[10243] = 6;
  SettingsControls controls = Loaded(*image);
  EXPECT_TRUE(HasSymbolText(controls));
  controls.display_symbol = 5;
  EXPECT_FALSE(HasSymbolText(controls));
  StoreSettings(controls, TargetIn(*image));
  EXPECT_EQ(BytesAt(*image, 10243, 4), (Bytes{5, 'A', 'B', 0}));
}

TEST(Settings, OwnOneBitOfTheSwitches) {
  for (const int others : {0x00, 0xBF}) {
    auto image = MakeImage();
    DefaultsRecord record{};
    (*image)[10505] = record[797] = static_cast<std::uint8_t>(others);
    SettingsControls controls = Loaded(*image);
    EXPECT_EQ(controls.second_choice, false);
    controls.second_choice = true;
    StoreSettings(controls, TargetIn(*image));
    StoreSettings(controls, TargetIn(record));
    EXPECT_EQ((*image)[10505], others | 0x40);
    EXPECT_EQ(record[797], others | 0x40);
    EXPECT_EQ(Loaded(*image).second_choice, true);
    controls.second_choice = std::nullopt;  // neither button is checked
    StoreSettings(controls, TargetIn(*image));
    EXPECT_EQ((*image)[10505], others | 0x40);
    controls.second_choice = false;
    StoreSettings(controls, TargetIn(*image));
    EXPECT_EQ((*image)[10505], others);
  }
}

TEST(Settings, OpenWithTheDefaultsWhereThePreferenceSaysSo) {
  auto image = MakeImage();
  DefaultsRecord record{};
  (*image)[10502] = 3;
  record[794] = 9;
  EXPECT_EQ(LoadSettings(OpeningSource(*image, record, false)).level_a, 3);
  const SettingsControls controls = LoadSettings(OpeningSource(*image, record, true));
  EXPECT_EQ(controls.level_a, 9);
  StoreSettings(controls, TargetIn(*image));
  EXPECT_EQ((*image)[10502], 9);
}

}  // namespace
}  // namespace qz7
