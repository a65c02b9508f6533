#include <gtest/gtest.h>

#include "core/editors/autodial.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

constexpr const char* kTooMany = "Too many digits in phone number\nPlease limit to 16 digits";
constexpr const char* kInvalid = "Invalid digit in number\nPlease use 0-9, A-F, #, *, or -";

Bytes CodesOf(const std::string& text) {
  const EncodedNumber number = EncodeDtmf(text);
  EXPECT_EQ(number.refusal, nullptr) << text;
  return {number.codes.begin(), number.codes.end()};
}

std::string Refusal(const std::string& text) {
  const EncodedNumber number = EncodeDtmf(text);
  return number.refusal == nullptr ? "" : number.refusal;
}

Bytes Filled(Bytes codes) {
  codes.resize(16, 0xFF);
  return codes;
}

std::string Shown(const Bytes& codes, DtmfDisplay display = DtmfDisplay::kSymbols) {
  return FormatAutodialNumber(DecodeDtmf(codes, display));
}

TEST(AutodialNumber, OfSevenDigitsIsStoredAndShownAgain) {
  const Bytes codes = CodesOf("555-1234");
  EXPECT_EQ(codes, Filled({5, 5, 5, 1, 2, 3, 4}));
  EXPECT_EQ(Shown(codes), "555-1234");
}

TEST(AutodialNumber, OfElevenDigitsMayHoldBlanks) {
  const Bytes codes = CodesOf("1 555 555 1234");
  EXPECT_EQ(codes, Filled({1, 5, 5, 5, 5, 5, 5, 1, 2, 3, 4}));
  EXPECT_EQ(Shown(codes), "1-555-555-1234");
}

TEST(AutodialNumber, OfAnyOtherLengthShowsAsItStands) {
  for (const std::size_t length : {0U, 1U, 6U, 8U, 10U, 12U, 16U}) {
    const std::string digits(length, '7');
    EXPECT_EQ(Shown(CodesOf(digits)), digits);
  }
}

TEST(AutodialNumber, HoldsStarAndHashAsTheCodesOfEAndF) {
  EXPECT_EQ(CodesOf("*#"), Filled({0x0E, 0x0F}));
  EXPECT_EQ(CodesOf("EF"), Filled({0x0E, 0x0F}));
  EXPECT_EQ(Shown(CodesOf("*#"), DtmfDisplay::kSymbols), "*#");
  EXPECT_EQ(Shown(CodesOf("*#"), DtmfDisplay::kLetters), "EF");
  EXPECT_EQ(CodesOf("0123456789ABCD"), Filled({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
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
  AutodialControls controls;
  controls.numbers[0] = "12";
  controls.numbers[8] = "9";
  controls.flag = true;
  EXPECT_EQ(StoreAutodial(controls, TargetIn(*image)), std::nullopt);
  EXPECT_EQ(StoreAutodial(controls, TargetIn(record)), std::nullopt);
  EXPECT_EQ(BytesAt(*image, 10252, 16), Filled({1, 2}));
  EXPECT_EQ(BytesAt(*image, 10252 + 16, 112), Bytes(112, 0xFF));
  EXPECT_EQ(BytesAt(*image, 10252 + 128, 17),
            (Bytes{9, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                   0xFF, 0xFF, 0}));
  EXPECT_EQ((*image)[10504], 0x01);
  EXPECT_EQ(Bytes(record.begin() + 634, record.begin() + 778), BytesAt(*image, 10252, 144));
  EXPECT_EQ(record[796], 0x01);
}

TEST(Autodial, OwnsOneBitOfTheSwitches) {
  for (const int others : {0x00, 0xFE}) {
    auto image = MakeImage();
    (*image)[10504] = static_cast<std::uint8_t>(others);
    EXPECT_FALSE(LoadAutodial(SourceIn(*image), DtmfDisplay::kSymbols).flag);
    AutodialControls controls;
    for (const bool flag : {true, false}) {
      controls.flag = flag;
      StoreAutodial(controls, TargetIn(*image));
      EXPECT_EQ((*image)[10504], others | (flag ? 1 : 0));
      EXPECT_EQ(LoadAutodial(SourceIn(*image), DtmfDisplay::kSymbols).flag, flag);
    }
  }
}

TEST(Autodial, ShowsItsNumbersAsTheDisplayOptionSays) {
  auto image = MakeImage();
  PutBytes(*image, 10252, Bytes(144, 0xFF));
  PutBytes(*image, 10252 + 32, {14, 15, 0xFF, 1});
  EXPECT_EQ(LoadAutodial(SourceIn(*image), DtmfDisplay::kSymbols).numbers[2], "*#");
  EXPECT_EQ(LoadAutodial(SourceIn(*image), DtmfDisplay::kLetters).numbers[2], "EF");
  EXPECT_EQ(LoadAutodial(SourceIn(*image), DtmfDisplay::kLetters).numbers[1], "");
  EXPECT_EQ(AutodialText(*image, 2, DtmfDisplay::kSymbols), "*#");
}

TEST(Autodial, RewritesItsTextsWhenTheDisplayOptionIsToggled) {
  AutodialControls controls;
  controls.numbers[0] = "E1F*#";
  controls.numbers[8] = "*ef";
  ShowNumbersAs(controls, DtmfDisplay::kSymbols);
  EXPECT_EQ(controls.numbers[0], "*1#*#");
  EXPECT_EQ(controls.numbers[8], "*ef");
  ShowNumbersAs(controls, DtmfDisplay::kLetters);
  EXPECT_EQ(controls.numbers[0], "E1FEF");
  EXPECT_EQ(controls.numbers[8], "Eef");
}

// In the image or in the defaults record alike: what stands before the fault is stored by then.
template <typename Place>
void ExpectStopsAtTheFault(Place& place, std::size_t first_memory, std::size_t switches) {
  AutodialControls controls;
  controls.numbers[0] = "1";
  controls.numbers[1] = "2";
  controls.numbers[2] = "x";
  controls.numbers[3] = "4";
  controls.flag = true;
  test_seams.messages.clear();
  EXPECT_EQ(StoreAutodial(controls, TargetIn(place)), 2);
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
  AutodialControls controls;
  controls.numbers[8] = "12345678901234567";
  EXPECT_EQ(StoreAutodial(controls, TargetIn(*image)), 8);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{kTooMany});
}

}  // namespace
}  // namespace qz7
