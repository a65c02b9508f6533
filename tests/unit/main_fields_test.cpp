#include "core/editors/main_fields.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

const MainField& FieldOf(int control) {
  for (const MainField& field : MainFields()) {
    if (field.control == control) {
      return field;
    }
  }
  ADD_FAILURE() << "no control " << control;
  return MainFields()[0];
}

struct ListPlace {
  int control;
  std::size_t offset;
  std::vector<std::string> texts;
};
const std::vector<ListPlace> kLists = {
    {103, 10'240, {"Off", "30 Minutes", "1 hour", "3 hours", "5 hours", "8 hours"}},
    {104, 10'241, {"Off", "1 minute", "2.5 minutes", "5 minutes", "10 minutes"}},
    {111, 10'200, {"Key", "Dial", "Key+Dial", "PTT", "Key+PTT", "Dial+PTT", "All"}},
    {112, 10'206, {"Off", "1 Ring", "3 Ring", "5 Ring", "8 Ring", "Repeat"}},
    {108, 10'202, {"Off", "200ms", "300ms", "500ms", "1 Sec", "2 Sec"}},
    {114, 10'203, {"5 Second", "Key", "Toggle"}}};

struct BitPlace {
  int control;
  std::size_t offset;
  int bit;
};
constexpr BitPlace kBits[] = {
    {105, 10'504, 7}, {106, 10'504, 5}, {110, 10'504, 2}, {119, 10'504, 1}, {120, 10'504, 6},
    {122, 10'504, 3}, {107, 10'505, 3}, {113, 10'505, 7}, {116, 10'505, 4}, {118, 10'505, 0},
    {115, 10'506, 0}, {117, 10'506, 1}, {126, 10'506, 5}, {135, 10'506, 4}};

TEST(MainFields, AreTheControlsOfTheMainDialog) {
  std::set<int> controls;
  for (const MainField& field : MainFields()) {
    EXPECT_TRUE(controls.insert(field.control).second) << field.control;
  }
  const std::set<int> expected = {103, 104, 105, 106, 107, 108, 110, 111, 112, 113, 114,
                                  115, 116, 117, 118, 119, 120, 122, 126, 132, 135};
  EXPECT_EQ(controls, expected);
}

TEST(MainFields, AListStoresItsPosition) {
  for (const ListPlace& list : kLists) {
    const MainField& field = FieldOf(list.control);
    EXPECT_EQ(std::vector<std::string>(field.texts.begin(), field.texts.end()), list.texts);
    for (std::size_t i = 0; i < list.texts.size(); ++i) {
      auto image = image_fixture::MakeImage();
      WriteMainField(*image, field, static_cast<int>(i));
      EXPECT_EQ((*image)[list.offset], i);
      EXPECT_EQ(ReadMainField(*image, field), static_cast<int>(i));
    }
  }
}

TEST(MainFields, AutoPowerOffOf6ShowsNothingAndOf7OrMoreShowsOff) {
  auto image = image_fixture::MakeImage();
  const MainField& field = FieldOf(103);
  (*image)[10'240] = 5;
  EXPECT_EQ(ReadMainField(*image, field), 5);
  (*image)[10'240] = 6;
  EXPECT_EQ(ReadMainField(*image, field), std::nullopt);
  for (const int value : {7, 8, 255}) {
    (*image)[10'240] = static_cast<std::uint8_t>(value);
    EXPECT_EQ(ReadMainField(*image, field), 0) << value;
  }
}

TEST(MainFields, AValueWithoutAChoiceShowsNothingAndStays) {
  auto image = image_fixture::MakeImage();
  (*image)[10'203] = 3;
  EXPECT_EQ(ReadMainField(*image, FieldOf(114)), std::nullopt);
  WriteMainField(*image, FieldOf(114), std::nullopt);
  EXPECT_EQ((*image)[10'203], 3);
  (*image)[10'201] = 3;
  EXPECT_EQ(ReadMainField(*image, FieldOf(132)), std::nullopt);
  WriteMainField(*image, FieldOf(132), std::nullopt);
  EXPECT_EQ((*image)[10'201], 3);
}

TEST(MainFields, AGroupOfThreeStores0To2) {
  auto image = image_fixture::MakeImage();
  for (int i = 0; i < 3; ++i) {
    WriteMainField(*image, FieldOf(132), i);
    EXPECT_EQ((*image)[10'201], i);
    EXPECT_EQ(ReadMainField(*image, FieldOf(132)), i);
  }
  EXPECT_EQ(FieldOf(132).buttons, 3);
}

TEST(MainFields, ABitTouchesNoOtherBit) {
  for (const BitPlace& place : kBits) {
    const MainField& field = FieldOf(place.control);
    auto image = image_fixture::MakeImage();
    WriteMainField(*image, field, 1);
    EXPECT_EQ((*image)[place.offset], 1 << place.bit) << place.control;
    EXPECT_EQ(ReadMainField(*image, field), 1);
    image->fill(0xFF);
    WriteMainField(*image, field, 0);
    EXPECT_EQ((*image)[place.offset], 0xFF & ~(1 << place.bit)) << place.control;
    EXPECT_EQ(ReadMainField(*image, field), 0);
  }
}

TEST(MainFields, TheTwoWayGroupsHaveTwoButtons) {
  EXPECT_EQ(FieldOf(126).buttons, 2);
  EXPECT_EQ(FieldOf(135).buttons, 2);
}

TEST(FileComment, IsCutAt79CharactersAndEndedBy0) {
  auto image = image_fixture::MakeImage();
  WriteFileComment(*image, std::string(100, 'c'));
  EXPECT_EQ((*image)[178], 'c');
  EXPECT_EQ((*image)[179], 0);
  EXPECT_EQ((*image)[180], 0);
  WriteFileComment(*image, "");
  EXPECT_EQ((*image)[100], 0);
}

TEST(FileComment, ThatNobodyTouchedChangesNoByteBehindItsEnd) {
  auto image = image_fixture::MakeImage();
  image_fixture::PutBytes(*image, 100, {'H', 'i', 0, 'j', 'u', 'n', 'k'});
  const CloneImage before = *image;
  WriteFileComment(*image, "Hi");
  EXPECT_EQ(*image, before);
}

TEST(MainDialog, TheseControlsEnableTheDefaultsButtons) {
  std::set<int> touching;
  for (int control = 0; control < 300; ++control) {
    if (TouchesMainDefaults(control)) {
      touching.insert(control);
    }
  }
  std::set<int> expected = {122, 126, 127, 132, 133, 134, 135, 136};
  for (int control = 103; control <= 120; ++control) {
    expected.insert(control);
  }
  EXPECT_EQ(touching, expected);
}

TEST(MainDialog, ATooltipNamesByteAndBit) {
  EXPECT_EQ(FieldPlace(FieldOf(105)), "Byte 10504, bit 7");
  EXPECT_EQ(FieldPlace(FieldOf(132)), "Byte 10201");
}

}  // namespace
}  // namespace qz7
