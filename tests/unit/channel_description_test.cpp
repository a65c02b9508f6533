#include "core/image/channel_description.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <memory>

#include "core/files/new_document.h"
#include "core/image/channel_record.h"
#include "tests/unit/plain_numbers.h"

namespace qz7 {
namespace {

class ChannelDescription : public testing::Test {
 protected:
  void SetUp() override { MakeNewImage(*image_); }

  std::map<std::string, std::string> Describe(int n) {
    const std::vector<NamedValue> values = DescribeChannel(*image_, n, test_region);
    return {values.begin(), values.end()};
  }

  std::unique_ptr<CloneImage> image_ = std::make_unique<CloneImage>();
};

TEST_F(ChannelDescription, HasEveryFieldInOrder) {
  std::string names;
  for (const auto& [name, value] : DescribeChannel(*image_, 1, test_region)) {
    names += name + " ";
  }
  EXPECT_EQ(
      "rx tx shift offset tone-mode tone dcs mode power step name comment icon skip masked option "
      "option-a option-b ",
      names);
}

TEST_F(ChannelDescription, DecodesAProgrammedChannel) {
  std::uint8_t* record = GetChannelRecord(*image_, 1);
  const ChannelRecord bytes = {0x35, 0x02, 0x14, 0x50, 0x12, 0x06, 'R',  'P',  'T',  ' ', '1',
                               ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x25, 0x08, 0x01, 0,   0};
  std::memcpy(record, bytes.data(), bytes.size());
  *GetChannelFlagByte(*image_, 1) = kFlagProgrammed | kFlagSkip | kFlagOption;
  std::strcpy(ChannelComment(*image_, 1), "on the hill");
  const std::map<std::string, std::string> expected = {{"rx", "145.0125"},
                                                       {"tx", "144.4125"},
                                                       {"shift", "minus"},
                                                       {"offset", "600 kHz"},
                                                       {"tone-mode", "Tone Squelch"},
                                                       {"tone", "88.5"},
                                                       {"dcs", "025"},
                                                       {"mode", "FM-Wide"},
                                                       {"power", "Low2"},
                                                       {"step", "12.5 kHz"},
                                                       {"name", "RPT 1"},
                                                       {"comment", "on the hill"},
                                                       {"icon", "1"},
                                                       {"skip", "on"},
                                                       {"masked", "on"},
                                                       {"option", "on"},
                                                       {"option-a", "on"},
                                                       {"option-b", "on"}};
  EXPECT_EQ(expected, Describe(1));
}

TEST_F(ChannelDescription, TellsAnOffsetThatReadsBackToItself) {
  std::uint8_t* record = GetChannelRecord(*image_, 1);
  for (const auto& [khz, text] : std::map<int, std::string>{{0, "0 kHz"},
                                                            {5, "0.005 MHz"},
                                                            {600, "600 kHz"},
                                                            {1000, "1 MHz"},
                                                            {1050, "1.05 MHz"},
                                                            {1605, "1.6050 MHz"},
                                                            {7600, "7.6000 MHz"},
                                                            {99'950, "99.9500 MHz"}}) {
    StoreOffset(record, Kilohertz(khz));
    EXPECT_EQ(text, Describe(1).at("offset"));
    EXPECT_EQ(khz * 10, ParseOffset(text));
  }
}

TEST_F(ChannelDescription, ShowsTheEditorsDefaultsForAnUnprogrammedChannel) {
  const auto fields = Describe(7);
  EXPECT_EQ("", fields.at("rx"));
  EXPECT_EQ("", fields.at("tx"));
  EXPECT_EQ("600 kHz", fields.at("offset"));
  EXPECT_EQ("100.0", fields.at("tone"));
  EXPECT_EQ("023", fields.at("dcs"));
  EXPECT_EQ("High", fields.at("power"));
  EXPECT_EQ("off", fields.at("masked"));
}

TEST_F(ChannelDescription, LeavesEmptyWhatASlotLacks) {
  for (const int n : {-1, -20, -21, -30}) {
    const auto fields = Describe(n);
    for (const char* name : {"comment", "icon", "skip", "masked", "option"}) {
      EXPECT_EQ("", fields.at(name)) << n << " " << name;
    }
  }
  SetChannelName(*image_, -1, "VFO");
  SetChannelName(*image_, -21, "HOME");
  EXPECT_EQ("", Describe(-1).at("name"));
  EXPECT_EQ("HOME", Describe(-21).at("name"));
}

TEST_F(ChannelDescription, LeavesEmptyWhatHasNoMeaning) {
  std::uint8_t* record = GetChannelRecord(*image_, 1);
  record[5] = 3;
  record[17] = 0xF0;
  record[kRecordStep] = 9;
  record[kRecordTone] = 39;
  record[kRecordDcs] = 104;
  const auto fields = Describe(1);
  for (const char* name : {"mode", "tone-mode", "step", "tone", "dcs"}) {
    EXPECT_EQ("", fields.at(name)) << name;
  }
}

TEST_F(ChannelDescription, IsEmptyForWhatNamesNoChannel) {
  for (const int n : {0, 241, -31, 1000}) {
    EXPECT_TRUE(DescribeChannel(*image_, n, test_region).empty()) << n;
  }
}

TEST_F(ChannelDescription, TitlesTheSlots) {
  EXPECT_EQ("channel 5", SlotTitle(*image_, 5));
  EXPECT_EQ("channel U10", SlotTitle(*image_, 240));
  EXPECT_EQ("VFO A MW", SlotTitle(*image_, -1));
  EXPECT_EQ("VFO B Act2", SlotTitle(*image_, -20));
  EXPECT_EQ("home V Ham", SlotTitle(*image_, -26));
}

}  // namespace
}  // namespace qz7
