#include <gtest/gtest.h>

#include "core/editors/autodial.h"
#include "tests/unit/seams.h"
#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;

constexpr const char* kTooMany = "Too many digits in phone number\nPlease limit to 16 digits";
constexpr const char* kInvalid = "Invalid digit in number\nPlease use 0-9, A-F, #, *, or -";

Bytes CodesOf(const std::string& text) {
  auto image = MakeImage();
  EXPECT_EQ(Put("autodial-2", Text(text), *image), "") << text;
  EXPECT_EQ((*image)[10267], 0);
  EXPECT_EQ((*image)[10284], 0);
  return BytesAt(*image, 10268, 16);
}

// A refused number changes no byte.
std::string Refusal(const std::string& text) {
  auto image = MakePatternImage();
  const CloneImage before = *image;
  const std::string refusal = Put("autodial-1", Text(text), *image);
  EXPECT_EQ(*image, before);
  return refusal;
}

Bytes Filled(Bytes codes) {
  codes.resize(16, 0xFF);
  return codes;
}

std::string NumberShown(const Bytes& codes) {
  auto image = MakeImage();
  PutBytes(*image, 10252, codes);
  return Shown("autodial-1", *image).text;
}

TEST(AutodialNumber, OfSevenDigitsIsStoredAndShownAgain) {
  const Bytes codes = CodesOf("555-1234");
  EXPECT_EQ(codes, Filled({5, 5, 5, 1, 2, 3, 4}));
  EXPECT_EQ(NumberShown(codes), "555-1234");
}

TEST(AutodialNumber, OfElevenDigitsMayHoldBlanks) {
  const Bytes codes = CodesOf("1 555 555 1234");
  EXPECT_EQ(codes, Filled({1, 5, 5, 5, 5, 5, 5, 1, 2, 3, 4}));
  EXPECT_EQ(NumberShown(codes), "1-555-555-1234");
}

TEST(AutodialNumber, OfAnyOtherLengthShowsAsItStands) {
  for (const std::size_t length : {0U, 1U, 6U, 8U, 10U, 12U, 16U}) {
    const std::string digits(length, '7');
    EXPECT_EQ(NumberShown(CodesOf(digits)), digits);
  }
}

TEST(AutodialNumber, HoldsStarAndHashAsTheCodesOfEAndF) {
  EXPECT_EQ(CodesOf("*#"), Filled({0x0E, 0x0F}));
  EXPECT_EQ(CodesOf("EF"), Filled({0x0E, 0x0F}));
  EXPECT_EQ(NumberShown(CodesOf("*#")), "*#");
  EXPECT_EQ(CodesOf("0123456789ABCD"), Filled({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
  EXPECT_EQ(NumberShown(CodesOf("0123456789ABCD")), "0123456789ABCD");
}

TEST(AutodialNumber, OfACodeTheLowFourBitsCount) {
  EXPECT_EQ(NumberShown(Filled({0x51, 0xFE, 0x2A})), "1*A");
}

TEST(AutodialNumber, OfNothingIsAllFill) {
  EXPECT_EQ(CodesOf(""), Bytes(16, 0xFF));
  EXPECT_EQ(CodesOf(" - - "), Bytes(16, 0xFF));
}

TEST(AutodialNumber, TakesSixteenDigitsAndNoMore) {
  EXPECT_EQ(CodesOf("1234567890123456"), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(CodesOf("1-234-567-890-123-456 ").size(), 16U);
  EXPECT_EQ(Refusal("12345678901234567"), kTooMany);
  EXPECT_EQ(Refusal("1-234-567-890-123-4567"), kTooMany);
  EXPECT_EQ(Row("autodial-9").text.longest, 16U);
}

TEST(AutodialNumber, CountsTheDigitsBeforeItLooksAtThem) {
  EXPECT_EQ(Refusal("xxxxxxxxxxxxxxxxx"), kTooMany);
  EXPECT_EQ(Refusal("xxxxxxxxxxxxxxxx"), kInvalid);
}

TEST(AutodialNumber, IsCutAfter24Characters) {
  EXPECT_EQ(CodesOf("1                      2"
                    "3"),
            Filled({1, 2}));
  EXPECT_EQ(CodesOf(std::string(24, '-') + "x"), Bytes(16, 0xFF));
}

TEST(AutodialNumber, RefusesOtherCharacters) {
  EXPECT_EQ(Refusal("1 (555) 555-1234"), kInvalid);
  EXPECT_EQ(Refusal("a"), kInvalid);
  EXPECT_EQ(Refusal("G"), kInvalid);
  EXPECT_EQ(Refusal("+1"), kInvalid);
  EXPECT_EQ(Refusal("1\xB1"), kInvalid);
  EXPECT_EQ(Refusal(std::string(1, '\0')), kInvalid);
}

TEST(Autodial, LiesAtItsPlaces) {
  auto image = MakeImage();
  DefaultsRecord record{};
  std::vector<SettingValue> values(9);
  values[0] = Text("12");
  values[8] = Text("9");
  values.push_back(Choice(1));
  EXPECT_EQ(StoreScreen(AutodialScreen(), values, TargetIn(*image)), std::nullopt);
  EXPECT_EQ(StoreScreen(AutodialScreen(), values, TargetIn(record)), std::nullopt);
  EXPECT_EQ(BytesAt(*image, 10252, 16), Filled({1, 2}));
  EXPECT_EQ(BytesAt(*image, 10252 + 16, 112), Bytes(112, 0xFF));
  EXPECT_EQ(BytesAt(*image, 10252 + 128, 16), Filled({9}));
  EXPECT_EQ((*image)[10396], 0);
  EXPECT_EQ((*image)[10504], 0x01);
  EXPECT_EQ(BytesAt(record, 634, 144), BytesAt(*image, 10252, 144));
  EXPECT_EQ(record[796], 0x01);
}

TEST(Autodial, OwnsOneBitOfTheSwitches) {
  for (const int others : {0x00, 0xFE}) {
    auto image = MakeImage();
    (*image)[10504] = static_cast<std::uint8_t>(others);
    EXPECT_EQ(Shown("autodial-flag", *image), Choice(0));
    for (const int flag : {1, 0}) {
      Put("autodial-flag", Choice(flag), *image);
      EXPECT_EQ((*image)[10504], others | flag);
      EXPECT_EQ(Shown("autodial-flag", *image), Choice(flag));
    }
  }
}

TEST(Autodial, ListsItsNumbersAsTheDisplayOptionSays) {
  auto image = MakeImage();
  PutBytes(*image, 10252, Bytes(144, 0xFF));
  PutBytes(*image, 10252 + 32, {14, 15, 0xFF, 1});
  EXPECT_EQ(AutodialText(*image, 2, DtmfDisplay::kSymbols), "*#");
  EXPECT_EQ(AutodialText(*image, 2, DtmfDisplay::kLetters), "EF");
  EXPECT_EQ(AutodialText(*image, 1, DtmfDisplay::kLetters), "");
}

TEST(Autodial, RewritesATextAsTheDisplayOptionSays) {
  EXPECT_EQ(ShownAs(DtmfDisplay::kSymbols, "E1F*#"), "*1#*#");
  EXPECT_EQ(ShownAs(DtmfDisplay::kLetters, "*1#EF"), "E1FEF");
  EXPECT_EQ(ShownAs(DtmfDisplay::kSymbols, "*ef"), "*ef");
  EXPECT_EQ(ShownAs(DtmfDisplay::kLetters, "*ef"), "Eef");
}

// In the image or in the defaults record alike: what stands before the fault is stored by then.
template <typename Place>
void ExpectStopsAtTheFault(Place& place, std::size_t first_memory, std::size_t switches) {
  std::vector<SettingValue> values = {Text("1"), Text("2"), Text("x"), Text("4")};
  values.resize(9);
  values.push_back(Choice(1));
  test_seams.messages.clear();
  EXPECT_EQ(StoreScreen(AutodialScreen(), values, TargetIn(place)), 2U);
  EXPECT_EQ(place[first_memory], 1);
  EXPECT_EQ(place[first_memory + 16], 2);
  EXPECT_EQ(place[first_memory + 32], 0);
  EXPECT_EQ(place[first_memory + 48], 0);
  EXPECT_EQ(place[switches], 0);
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, kInvalid);
  EXPECT_EQ(test_seams.messages[0].caption, "Input Error");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
}

TEST(Autodial, StopsAtTheFirstFaultyNumberAndKeepsTheOnesBefore) {
  auto image = MakeImage();
  ExpectStopsAtTheFault(*image, 10252, 10504);
  DefaultsRecord record{};
  ExpectStopsAtTheFault(record, 634, 796);
}

TEST(Autodial, SaysThatANumberIsTooLong) {
  auto image = MakeImage();
  auto values = Values(AutodialScreen());
  values[8] = Text("12345678901234567");
  EXPECT_EQ(StoreScreen(AutodialScreen(), values, TargetIn(*image)), 8U);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{kTooMany});
}

}  // namespace
}  // namespace qz7
