#include <gtest/gtest.h>

#include "core/editors/settings.h"
#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;

// The byte that a list choice is stored as, in the image and in the defaults record.
void ExpectChoice(const char* name, int position, std::size_t image_offset,
                  std::size_t record_offset, int byte) {
  SCOPED_TRACE(name);
  auto image = MakeImage();
  CloneImage wanted = *image;
  wanted[image_offset] = static_cast<std::uint8_t>(byte);
  DefaultsRecord record{};
  DefaultsRecord wanted_record{};
  wanted_record[record_offset] = static_cast<std::uint8_t>(byte);
  Put(name, Choice(position), *image);
  Put(name, Choice(position), record);
  EXPECT_EQ(*image, wanted);
  EXPECT_EQ(record, wanted_record);
  EXPECT_EQ(Shown(name, *image), Choice(position));
  EXPECT_EQ(Shown(name, record), Choice(position));
}

void ExpectNoChoice(const char* name, std::size_t image_offset, int byte) {
  SCOPED_TRACE(name);
  auto image = MakeImage();
  (*image)[image_offset] = static_cast<std::uint8_t>(byte);
  EXPECT_EQ(Shown(name, *image), SettingValue{});
  const CloneImage before = *image;
  Put(name, Shown(name, *image), *image);
  EXPECT_EQ(*image, before);
}

TEST(SettingsLists, HoldTheirTexts) {
  const auto numbers = [](int first, int last) {
    std::vector<std::string> texts;
    for (int i = first; i <= last; ++i) {
      texts.push_back(std::to_string(i));
    }
    return texts;
  };
  EXPECT_EQ(TextsOf(Row("level-a")), numbers(0, 15));
  EXPECT_EQ(TextsOf(Row("level-b")), numbers(0, 8));
  EXPECT_EQ(TextsOf(Row("scale-value")), numbers(1, 10));
  const std::vector<std::string> times = TextsOf(Row("time-of-day"));
  ASSERT_EQ(times.size(), 145U);
  EXPECT_EQ(times[0], " 00:00");
  EXPECT_EQ(times[1], " 00:10");
  EXPECT_EQ(times[6], " 01:00");
  EXPECT_EQ(times[77], " 12:50");
  EXPECT_EQ(times[144], " 24:00");
  EXPECT_EQ(
      TextsOf(Row("sensor-display")),
      (std::vector<std::string>{"None", "Temp", "Baro", "Alti", "Temp+Baro", "Temp+Alti", "All"}));
  EXPECT_EQ(TextsOf(Row("display-symbol")),
            (std::vector<std::string>{" \x9A", " \x97", " \x16", " =", " \x10", " -", "Chr"}));
}

TEST(Settings, StoreEveryListAtItsPlace) {
  ExpectChoice("level-a", 0, 10502, 794, 0);
  ExpectChoice("level-a", 15, 10502, 794, 15);
  ExpectChoice("level-b", 8, 10503, 795, 8);
  ExpectChoice("scale-value", 0, 10194, 576, 6);
  ExpectChoice("scale-value", 9, 10194, 576, 15);
  ExpectChoice("sensor-display", 6, 10224, 606, 6);
  ExpectChoice("time-of-day", 144, 10242, 624, 144);
  ExpectChoice("display-symbol", 6, 10243, 625, 6);
}

TEST(Settings, LeaveAByteAloneThatIsOnNoList) {
  ExpectNoChoice("level-a", 10502, 16);
  ExpectNoChoice("level-b", 10503, 9);
  ExpectNoChoice("scale-value", 10194, 5);
  ExpectNoChoice("scale-value", 10194, 16);
  ExpectNoChoice("sensor-display", 10224, 7);
  ExpectNoChoice("time-of-day", 10242, 145);
  ExpectNoChoice("display-symbol", 10243, 7);
  ExpectNoChoice("display-symbol", 10243, 255);
}

TEST(Settings, StoreNumbersHighByteFirst) {
  auto image = MakeImage();
  DefaultsRecord record{};
  for (const auto& [name, text] : {std::pair{"number-a", "300"}, std::pair{"number-b", "999"}}) {
    Put(name, Text(text), *image);
    Put(name, Text(text), record);
    EXPECT_EQ(Shown(name, *image), Text(text));
    EXPECT_EQ(Row(name).text.longest, 3U);
  }
  EXPECT_EQ(BytesAt(*image, 10196, 4), (Bytes{0x01, 0x2C, 0x03, 0xE7}));
  EXPECT_EQ(BytesAt(record, 578, 4), (Bytes{0x01, 0x2C, 0x03, 0xE7}));
}

TEST(Settings, ReadNumbersUpToTheFirstCharacterThatIsNoDigit) {
  struct Typed {
    const char* text;
    Bytes bytes;
  };
  for (const Typed& typed : std::vector<Typed>{{"", {0, 0}},
                                               {"x", {0, 0}},
                                               {"1x2", {0, 1}},
                                               {"-1", {0, 0}},
                                               {" 12", {0, 0}},
                                               {"1 2", {0, 1}},
                                               {"12a", {0, 12}},
                                               {"\t9", {0, 0}},
                                               {"007", {0, 7}},
                                               {"65535", {0xFF, 0xFF}},
                                               {"65536", {0, 0}},
                                               {"65792", {1, 0}},
                                               {"999999999", {0xC9, 0xFF}},
                                               {"9999999990", {0xC9, 0xFF}}}) {
    auto image = MakeImage();
    PutBytes(*image, 10196, {0x55, 0x55});
    Put("number-a", Text(typed.text), *image);
    EXPECT_EQ(BytesAt(*image, 10196, 2), typed.bytes) << typed.text;
  }
}

TEST(Settings, ShowNumbersBeyondThreeDigits) {
  auto image = MakeImage();
  PutBytes(*image, 10196, {0xFF, 0xFF, 0x27, 0x10});
  EXPECT_EQ(Shown("number-a", *image), Text("65535"));
  EXPECT_EQ(Shown("number-b", *image), Text("10000"));
}

TEST(Settings, StoreTheSymbolTextWithZerosBehindIt) {
  auto image = MakeImage();
  DefaultsRecord record;
  record.fill(0xEE);
  PutBytes(*image, 10244, Bytes(8, 0xEE));
  Put("symbol-text", Text("AB"), *image);
  Put("symbol-text", Text("AB"), record);
  EXPECT_EQ(BytesAt(*image, 10244, 8), (Bytes{'A', 'B', 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(BytesAt(record, 626, 8), (Bytes{'A', 'B', 0, 0, 0, 0, 0, 0}));
  Put("symbol-text", Text("ABCDEFGHI"), *image);
  EXPECT_EQ(BytesAt(*image, 10244, 9), (Bytes{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 0}));
}

TEST(Settings, ShowTheSymbolTextUpToItsFirstZero) {
  auto image = MakeImage();
  PutBytes(*image, 10244, {'A', 0x9A, 0, 'B', 0, 0, 0, 0});
  EXPECT_EQ(Shown("symbol-text", *image), Text("A\x9A"));
  PutBytes(*image, 10244, Bytes(8, 'Z'));
  EXPECT_EQ(Shown("symbol-text", *image), Text("ZZZZZZZZ"));
}

TEST(Settings, KeepTheSymbolTextWhenAnotherSymbolIsChosen) {
  auto image = MakeImage();
  PutBytes(*image, 10243, {6, 'A', 'B', 0, 0, 0, 0, 0, 0});
  auto values = LoadScreen(SettingsScreen(), SourceIn(*image));
  EXPECT_EQ(values[7], Choice(kTextSymbol));
  values[7] = Choice(5);
  EXPECT_EQ(StoreScreen(SettingsScreen(), values, TargetIn(*image)), std::nullopt);
  EXPECT_EQ(BytesAt(*image, 10243, 4), (Bytes{5, 'A', 'B', 0}));
}

TEST(Settings, OwnOneBitOfTheSwitches) {
  for (const int others : {0x00, 0xBF}) {
    auto image = MakeImage();
    DefaultsRecord record{};
    (*image)[10505] = record[797] = static_cast<std::uint8_t>(others);
    EXPECT_EQ(Shown("settings-switch", *image), Choice(0));
    Put("settings-switch", Choice(1), *image);
    Put("settings-switch", Choice(1), record);
    EXPECT_EQ((*image)[10505], others | 0x40);
    EXPECT_EQ(record[797], others | 0x40);
    EXPECT_EQ(Shown("settings-switch", *image), Choice(1));
    Put("settings-switch", {}, *image);  // neither button is checked
    EXPECT_EQ((*image)[10505], others | 0x40);
    Put("settings-switch", Choice(0), *image);
    EXPECT_EQ((*image)[10505], others);
  }
}

}  // namespace
}  // namespace qz7
