#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "core/files/csv_export.h"
#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/derived_tables.h"
#include "core/interchange/import.h"
#include "tests/unit/interchange_fixture.h"
#include "tests/unit/plain_numbers.h"

// What of a channel survives the way through the list: export, then import into an empty document.
namespace qz7 {
namespace {

using namespace interchange_fixture;

ChannelFields Fields(Units receive, Shift shift, Units second) {
  ChannelFields fields;
  fields.receive = receive;
  fields.shift = shift;
  fields.offset = second;
  fields.transmit = second;
  fields.name = "RPT1";
  return fields;
}

void Put(CloneImage& image, int n, const ChannelFields& fields, const std::string& comment = "") {
  const ChannelRecord record = BuildChannelRecord(ChannelRecord{}, fields, n);
  std::copy(record.begin(), record.end(), GetChannelRecord(image, n));
  std::copy(comment.begin(), comment.end(), ChannelComment(image, n));
  SetProgrammed(image, n, true);
  SetMasked(image, n, false);
}

std::unique_ptr<CloneImage> ThroughTheList(CloneImage& image) {
  auto back = MakeRadio();
  RebuildDerivedTables(image);
  ImportSession session;
  ImportRequest request;
  request.options.headers = true;
  const auto result = ImportIntoImage(*back, session, BytesOfText(ExportCsv(image)), request);
  EXPECT_TRUE(result.has_value());
  return back;
}

// The channel that this one comes back as.
ChannelFields Back(const ChannelFields& fields) {
  auto image = MakeRadio();
  Put(*image, 1, fields);
  const auto back = ThroughTheList(*image);
  EXPECT_TRUE(IsProgrammed(*back, 1));
  return DecodeChannelRecord(GetChannelRecord(*back, 1));
}

constexpr std::array<Units, 9> kReceive = {1'469'400, 1'450'125, 1'450'375, 4'420'000, 4'389'875,
                                           518'100,   1'185'000, 2'799'950, 2'800'000};
constexpr std::array<Units, 6> kSixOffsets = {6'000, 10'000, 16'000, 30'000, 50'000, 76'000};

TEST(RoundTrip, KeepsReceiveFrequencyShiftAndTheSixUsualOffsets) {
  for (const Units receive : kReceive) {
    for (const Units offset : kSixOffsets) {
      for (const Shift shift : {Shift::kMinus, Shift::kPlus}) {
        const ChannelFields back = Back(Fields(receive, shift, offset));
        EXPECT_EQ(back.receive, receive);
        EXPECT_EQ(back.shift, shift);
        EXPECT_EQ(back.offset, offset);
      }
    }
  }
}

TEST(RoundTrip, KeepsASimplexChannel) {
  for (const Units receive : kReceive) {
    const ChannelFields back = Back(Fields(receive, Shift::kSimplex, 6'000));
    EXPECT_EQ(back.receive, receive);
    EXPECT_EQ(back.shift, Shift::kSimplex);
    EXPECT_EQ(back.transmit, receive);
  }
}

TEST(RoundTrip, KeepsAnOddSplit) {
  for (const Units transmit : {4'350'000, 4'350'125, 1'475'000, 525'000, 1'469'400}) {
    const ChannelFields back = Back(Fields(1'469'400, Shift::kOddSplit, transmit));
    EXPECT_EQ(back.shift, Shift::kOddSplit) << transmit;
    EXPECT_EQ(back.transmit, transmit);
  }
}

TEST(RoundTrip, KeepsEveryToneWithItsMode) {
  for (int tone = 0; tone < kToneCount; ++tone) {
    for (const ToneMode mode : {ToneMode::kNone, ToneMode::kEncode, ToneMode::kSquelch}) {
      ChannelFields fields = Fields(1'469'400, Shift::kMinus, 6'000);
      fields.tone_index = tone;
      fields.tone_mode = mode;
      const ChannelFields back = Back(fields);
      EXPECT_EQ(back.tone_index, tone);
      EXPECT_EQ(back.tone_mode, mode);
    }
  }
}

TEST(RoundTrip, KeepsSkipNameAndComment) {
  auto image = MakeRadio();
  ChannelFields fields = Fields(1'469'400, Shift::kMinus, 6'000);
  const std::vector<std::string> names = {"RPT1", "", "EIGHTCHR", "A,B;C", "----", " \xC4 x", "'"};
  int n = 1;
  for (const std::string& name : names) {
    fields.name = name;
    Put(*image, n, fields, name + ", a comment");
    SetSkip(*image, n, n % 2 == 0);
    ++n;
  }
  const auto back = ThroughTheList(*image);
  n = 1;
  for (const std::string& name : names) {
    EXPECT_EQ(DecodeChannelRecord(GetChannelRecord(*back, n)).name, name);
    EXPECT_EQ(GetChannelName(*back, n), GetChannelName(*image, n));
    EXPECT_EQ(ChannelCommentText(*back, n), ChannelCommentText(*image, n));
    EXPECT_EQ(IsSkip(*back, n), n % 2 == 0);
    ++n;
  }
}

TEST(RoundTrip, KeepsACommentOf31Characters) {
  auto image = MakeRadio();
  const std::string comment = "0123456789, 123456789; 12345678";
  ASSERT_EQ(comment.size(), 31U);
  Put(*image, 1, Fields(1'469'400, Shift::kMinus, 6'000), comment);
  EXPECT_EQ(ChannelCommentText(*ThroughTheList(*image), 1), comment);
}

TEST(RoundTrip, KeepsHighPowerAndLow3) {
  ChannelFields fields = Fields(1'469'400, Shift::kMinus, 6'000);
  for (const Power power : {Power::kLow3, Power::kHigh}) {
    fields.power = power;
    EXPECT_EQ(Back(fields).power, power);
  }
}

TEST(RoundTrip, KeepsEveryChannelOfAFullDocumentButTheLast) {
  auto image = MakeRadio();
  for (int n = 1; n <= 240; ++n) {
    ChannelFields fields = Fields(1'440'000 + 50 * n, static_cast<Shift>(n % 3), kSixOffsets[0]);
    fields.name = "CH" + std::to_string(n);
    Put(*image, n, fields, "number " + std::to_string(n));
  }
  const auto back = ThroughTheList(*image);
  for (int n = 1; n < 240; ++n) {
    EXPECT_EQ(RecordBytes(*back, n), RecordBytes(*image, n)) << n;
    EXPECT_EQ(ChannelCommentText(*back, n), ChannelCommentText(*image, n));
  }
  EXPECT_FALSE(IsProgrammed(*back, 240));
}

// The list has one column for "L1" to "U10" and the rest, and none for a number.
TEST(RoundTrip, LosesTheChannelNumbers) {
  auto image = MakeRadio();
  Put(*image, 5, Fields(1'469'400, Shift::kMinus, 6'000));
  Put(*image, 221, Fields(4'460'000, Shift::kSimplex, 6'000));
  const auto back = ThroughTheList(*image);
  EXPECT_EQ(RecordBytes(*back, 1)[2], 0x14);
  EXPECT_EQ(RecordBytes(*back, 2)[2], 0x44);
  EXPECT_FALSE(IsProgrammed(*back, 5) || IsProgrammed(*back, 221));
}

// A simplex channel's second column is a usual offset whatever the channel keeps.
TEST(RoundTrip, LosesTheUnusedOffsetOfASimplexChannel) {
  EXPECT_EQ(Back(Fields(1'469'400, Shift::kSimplex, 16'000)).offset, 6'000);
  EXPECT_EQ(Back(Fields(4'460'000, Shift::kSimplex, 6'000)).offset, 50'000);
}

// An offset of 0 reads as a missing one, a step below 5 kHz is rounded, and above 99.5 MHz a number
// reads as a frequency.
TEST(RoundTrip, LosesOffsetsThatAreNotUsual) {
  EXPECT_EQ(Back(Fields(1'469'400, Shift::kMinus, 0)).offset, 6'000);
  EXPECT_EQ(Back(Fields(4'460'000, Shift::kPlus, 0)).offset, 50'000);
  EXPECT_EQ(Back(Fields(1'469'400, Shift::kMinus, 6'120)).offset, 6'100);
  EXPECT_EQ(Back(Fields(4'460'000, Shift::kMinus, 995'000)).offset, 995'000);
  const ChannelFields beyond = Back(Fields(4'460'000, Shift::kMinus, 995'500));
  EXPECT_EQ(beyond.shift, Shift::kOddSplit);
  EXPECT_EQ(beyond.transmit, 995'500);
}

// Two frequencies at a usual distance read as minus or plus: the radio transmits where it did.
TEST(RoundTrip, LosesTheOddSplitOfAUsualDistance) {
  const ChannelFields minus = Back(Fields(1'469'400, Shift::kOddSplit, 1'463'400));
  EXPECT_EQ(minus.shift, Shift::kMinus);
  EXPECT_EQ(minus.transmit, 1'463'400);
  const ChannelFields plus = Back(Fields(4'420'000, Shift::kOddSplit, 4'470'000));
  EXPECT_EQ(plus.shift, Shift::kPlus);
  EXPECT_EQ(plus.transmit, 4'470'000);
}

// The import asks whether the radio receives there.
TEST(RoundTrip, LosesATransmitFrequencyThatTheRadioDoesNotReceive) {
  EXPECT_EQ(Back(Fields(1'469'400, Shift::kOddSplit, 7'350'000)).transmit, 6'000);
  EXPECT_EQ(Back(Fields(4'420'000, Shift::kOddSplit, 7'350'000)).transmit, 50'000);
}

TEST(RoundTrip, LosesAChannelThatTheRadioDoesNotReceive) {
  auto image = MakeRadio();
  Put(*image, 1, Fields(7'350'000, Shift::kSimplex, 6'000));
  EXPECT_FALSE(IsProgrammed(*ThroughTheList(*image), 1));
}

// The list has no column for DCS, mode, step, icon, the options and the two bytes that are kept.
TEST(RoundTrip, LosesWhatTheListHasNoColumnFor) {
  ChannelFields fields = Fields(1'469'400, Shift::kMinus, 6'000);
  fields.tone_mode = ToneMode::kDcs;
  fields.dcs_index = 50;
  fields.mode = Mode::kAm;
  fields.step = 6;
  fields.icon = 7;
  fields.option_a = true;
  fields.option_b = true;
  const ChannelFields back = Back(fields);
  EXPECT_EQ(back.tone_mode, ToneMode::kNone);
  EXPECT_EQ(back.dcs_index, 0);
  EXPECT_EQ(back.mode, Mode::kFmNarrow);
  EXPECT_EQ(back.step, DefaultStep(1'469'400));
  EXPECT_EQ(back.icon, 0);
  EXPECT_FALSE(back.option_a || back.option_b);
}

TEST(RoundTrip, LosesTheOffStepFlagAndTheKeptBits) {
  auto image = MakeRadio();
  Put(*image, 1, Fields(1'469'400, Shift::kMinus, 6'000));
  std::uint8_t* record = GetChannelRecord(*image, 1);
  record[0] |= 0xC0;
  record[20] = 0xA5;
  record[21] = 0x5A;
  const Bytes back = RecordBytes(*ThroughTheList(*image), 1);
  EXPECT_EQ(back[0], 0x00);
  EXPECT_EQ(back[20], 0x00);
  EXPECT_EQ(back[21], 0x00);
}

// Import shows every channel and clears the option.
TEST(RoundTrip, LosesTheMaskAndTheOptionOfTheFlags) {
  auto image = MakeRadio();
  Put(*image, 1, Fields(1'469'400, Shift::kMinus, 6'000));
  (*image)[3358] = 0x09;
  EXPECT_EQ(FlagByte(*ThroughTheList(*image), 1), 0x03);
}

// Import knows one low power.
TEST(RoundTrip, LosesTheTwoLowestPowers) {
  ChannelFields fields = Fields(1'469'400, Shift::kMinus, 6'000);
  for (const Power power : {Power::kLow1, Power::kLow2}) {
    fields.power = power;
    EXPECT_EQ(Back(fields).power, Power::kLow3);
  }
}

// The summary holds 100.0 Hz for a tone index without a meaning.
TEST(RoundTrip, LosesAToneIndexOutsideTheTable) {
  auto image = MakeRadio();
  Put(*image, 1, Fields(1'469'400, Shift::kMinus, 6'000));
  GetChannelRecord(*image, 1)[18] = 200;
  EXPECT_EQ(RecordBytes(*ThroughTheList(*image), 1)[18], 12);
}

// Quotation marks are not escaped. A pair is dropped, and a comma between the two then cuts the
// text.
TEST(RoundTrip, LosesPairsOfQuotationMarks) {
  auto image = MakeRadio();
  ChannelFields fields = Fields(1'469'400, Shift::kMinus, 6'000);
  fields.name = "A\"B\"";
  Put(*image, 1, fields, "the \"old, grey\" mast");
  Put(*image, 2, fields);
  const auto back = ThroughTheList(*image);
  EXPECT_EQ(NameInRecord(*back, 1), "AB      ");
  EXPECT_EQ(ChannelCommentText(*back, 1), "the old");
  EXPECT_EQ(NameInRecord(*back, 2), "AB      ");
}

// A single one opens a text that nothing closes: from there on a line has one column.
TEST(RoundTrip, LosesAllButTheFrequenciesBehindASingleQuotationMark) {
  auto image = MakeRadio();
  ChannelFields fields = Fields(1'469'400, Shift::kMinus, 6'000);
  Put(*image, 1, fields);
  Put(*image, 2, fields, "5\" mast");
  Put(*image, 3, fields, "behind");
  const auto back = ThroughTheList(*image);
  EXPECT_EQ(NameInRecord(*back, 1), "RPT1    ");
  EXPECT_EQ(NameInRecord(*back, 2), "RPT1    ");
  EXPECT_EQ(ChannelCommentText(*back, 2), "5 mast");
  EXPECT_EQ(NameInRecord(*back, 3), "        ");
  EXPECT_EQ(ChannelCommentText(*back, 3), "");
  EXPECT_EQ(ReadReceiveFrequency(GetChannelRecord(*back, 3)), 1'469'400);
  EXPECT_EQ(RecordShift(GetChannelRecord(*back, 3)), Shift::kSimplex);
}

// The list's tone column is its fourth.
TEST(RoundTrip, SwitchesTheToneCheckOffForTheRestOfTheRun) {
  auto image = MakeRadio();
  Put(*image, 1, Fields(1'469'400, Shift::kMinus, 6'000));
  RebuildDerivedTables(*image);
  ImportSession session;
  ImportRequest request;
  request.options.headers = true;
  ImportIntoImage(*MakeRadio(), session, BytesOfText(ExportCsv(*image)), request);
  EXPECT_FALSE(session.check_tones);
}

}  // namespace
}  // namespace qz7
