#include "core/editors/main_fields.h"

#include <gtest/gtest.h>

#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;

struct ListPlace {
  const char* name;
  std::size_t offset;
  std::vector<std::string> texts;
};
const std::vector<ListPlace> kLists = {
    {"auto-power-off", 10'240, {"Off", "30 Minutes", "1 hour", "3 hours", "5 hours", "8 hours"}},
    {"transmit-time-out", 10'241, {"Off", "1 minute", "2.5 minutes", "5 minutes", "10 minutes"}},
    {"lock", 10'200, {"Key", "Dial", "Key+Dial", "PTT", "Key+PTT", "Dial+PTT", "All"}},
    {"bell", 10'206, {"Off", "1 Ring", "3 Ring", "5 Ring", "8 Ring", "Repeat"}},
    {"receive-saver", 10'202, {"Off", "200ms", "300ms", "500ms", "1 Sec", "2 Sec"}},
    {"lamp", 10'203, {"5 Second", "Key", "Toggle"}}};

struct BitPlace {
  const char* name;
  std::size_t offset;
  int bit;
};
constexpr BitPlace kBits[] = {
    {"switch-1", 10'504, 7},  {"switch-2", 10'504, 5},  {"switch-3", 10'504, 2},
    {"switch-4", 10'504, 1},  {"switch-5", 10'504, 6},  {"switch-6", 10'504, 3},
    {"switch-7", 10'505, 3},  {"switch-8", 10'505, 7},  {"switch-9", 10'505, 4},
    {"switch-10", 10'505, 0}, {"switch-11", 10'506, 0}, {"switch-12", 10'506, 1},
    {"option-b", 10'506, 5},  {"option-c", 10'506, 4}};

TEST(MainFields, AListStoresItsPosition) {
  for (const ListPlace& list : kLists) {
    EXPECT_EQ(TextsOf(Row(list.name)), list.texts);
    for (std::size_t i = 0; i < list.texts.size(); ++i) {
      auto image = MakeImage();
      Put(list.name, Choice(static_cast<int>(i)), *image);
      EXPECT_EQ((*image)[list.offset], i);
      EXPECT_EQ(Shown(list.name, *image), Choice(static_cast<int>(i)));
    }
  }
}

TEST(MainFields, AutoPowerOffOf6ShowsNothingAndOf7OrMoreShowsOff) {
  auto image = MakeImage();
  (*image)[10'240] = 5;
  EXPECT_EQ(Shown("auto-power-off", *image), Choice(5));
  (*image)[10'240] = 6;
  EXPECT_EQ(Shown("auto-power-off", *image), SettingValue{});
  for (const int value : {7, 8, 255}) {
    (*image)[10'240] = static_cast<std::uint8_t>(value);
    EXPECT_EQ(Shown("auto-power-off", *image), Choice(0)) << value;
  }
}

TEST(MainFields, AValueWithoutAChoiceShowsNothingAndStays) {
  for (const auto& [name, offset, value] :
       {std::tuple{"lamp", 10'203, 3}, std::tuple{"lamp", 10'203, 255},
        std::tuple{"option-a", 10'201, 3}, std::tuple{"transmit-time-out", 10'241, 7}}) {
    auto image = MakeImage();
    std::uint8_t& byte = (*image)[static_cast<std::size_t>(offset)];
    byte = static_cast<std::uint8_t>(value);
    EXPECT_EQ(Shown(name, *image), SettingValue{}) << name;
    Put(name, {}, *image);
    EXPECT_EQ(byte, value) << name;
  }
}

TEST(MainFields, AGroupOfThreeStores0To2) {
  auto image = MakeImage();
  for (int i = 0; i < 3; ++i) {
    Put("option-a", Choice(i), *image);
    EXPECT_EQ((*image)[10'201], i);
    EXPECT_EQ(Shown("option-a", *image), Choice(i));
  }
  EXPECT_EQ(Row("option-a").choices.count, 3);
}

TEST(MainFields, ABitTouchesNoOtherBit) {
  for (const BitPlace& place : kBits) {
    auto image = MakeImage();
    Put(place.name, Choice(1), *image);
    EXPECT_EQ((*image)[place.offset], 1 << place.bit) << place.name;
    EXPECT_EQ(Shown(place.name, *image), Choice(1));
    image->fill(0xFF);
    Put(place.name, Choice(0), *image);
    EXPECT_EQ((*image)[place.offset], 0xFF & ~(1 << place.bit)) << place.name;
    EXPECT_EQ(Shown(place.name, *image), Choice(0));
  }
}

TEST(MainFields, TheTwoWayGroupsHaveTwoButtons) {
  EXPECT_EQ(Row("option-b").choices.count, 2);
  EXPECT_EQ(Row("option-c").choices.count, 2);
}

TEST(FileComment, IsCutAt79CharactersAndEndedBy0) {
  auto image = MakeImage();
  WriteFileComment(*image, std::string(100, 'c'));
  EXPECT_EQ((*image)[178], 'c');
  EXPECT_EQ((*image)[179], 0);
  EXPECT_EQ((*image)[180], 0);
  WriteFileComment(*image, "");
  EXPECT_EQ((*image)[100], 0);
}

TEST(FileComment, ThatNobodyTouchedChangesNoByteBehindItsEnd) {
  auto image = MakeImage();
  PutBytes(*image, 100, {'H', 'i', 0, 'j', 'u', 'n', 'k'});
  const CloneImage before = *image;
  WriteFileComment(*image, "Hi");
  EXPECT_EQ(*image, before);
}

}  // namespace
}  // namespace qz7
