#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/image/channel_record.h"
#include "core/interchange/import_reader.h"
#include "tests/unit/interchange_fixture.h"
#include "tests/unit/plain_numbers.h"

namespace qz7 {
namespace {

using namespace interchange_fixture;

// Each field in the column of its number.
ImportSession AllColumns() {
  ImportSession session;
  for (std::uint32_t k = 0; k < kCsvColumnCount; ++k) {
    session.columns[k] = k + 1;
  }
  return session;
}

ImportRecord Parse(std::string_view line) {
  ImportSession session = AllColumns();
  return ParseRecord(session, line);
}

// The record of one cell of this field beside a receive frequency.
ImportRecord ParseCell(CsvColumn field, const std::string& cell) {
  ImportSession session = SessionWith({{kRxFrequency, 1}, {field, 2}});
  return ParseRecord(session, "146.94," + cell + ",\n");
}

std::string Name(const ImportRecord& record) { return record.name.data(); }
std::string Comment(const ImportRecord& record) { return record.comment.data(); }

TEST(ImportRecord, TakesEveryFieldOfALine) {
  ImportSession session = AllColumns();
  session.check_tones = false;
  const ImportRecord record =
      ParseRecord(session, "146.94,0.6,-,E,Skip,Mid,88.5,100.0,RPT1,North ridge\n");
  EXPECT_EQ(record.rx, 1'469'400U);
  EXPECT_EQ(record.tx, 6'000U);
  EXPECT_EQ(record.shift, 1);
  EXPECT_EQ(record.tone_mode, 1);
  EXPECT_TRUE(record.skip);
  EXPECT_EQ(record.power, ImportPower::kMid);
  EXPECT_EQ(record.encode_tone, 885);
  EXPECT_EQ(record.decode_tone, 1'000);
  EXPECT_EQ(Name(record), "RPT1");
  EXPECT_EQ(Comment(record), "North ridge");
}

TEST(ImportRecord, IsEmptyWithHighPowerForALineWithoutItsColumns) {
  const ImportRecord record = Parse("\n");
  EXPECT_EQ(record.rx, 0U);
  EXPECT_EQ(record.tx, 0U);
  EXPECT_EQ(record.shift, 0);
  EXPECT_EQ(record.tone_mode, 0);
  EXPECT_FALSE(record.skip);
  EXPECT_EQ(record.power, ImportPower::kHigh);
  EXPECT_EQ(record.encode_tone, 0);
  EXPECT_EQ(record.decode_tone, 0);
  EXPECT_EQ(Name(record), "");
  EXPECT_EQ(Comment(record), "");
}

TEST(ImportRecord, SkipsColumnsWithoutAField) {
  ImportSession session = SessionWith({{kNameColumn, 2}, {kRxFrequency, 4}});
  const ImportRecord record = ParseRecord(session, "7,HILL,8,146.52,9\n");
  EXPECT_EQ(record.rx, 1'465'200U);
  EXPECT_EQ(Name(record), "HILL");
}

TEST(ImportRecord, GivesAColumnToTheFirstOfItsFields) {
  ImportSession session = SessionWith({{kRxFrequency, 1}, {kNameColumn, 2}, {kCommentColumn, 2}});
  const ImportRecord record = ParseRecord(session, "146.52,HILL\n");
  EXPECT_EQ(Name(record), "HILL");
  EXPECT_EQ(Comment(record), "");
}

TEST(ImportRecord, PicksUpAnEarlierLongerLineBehindALineWithoutALineFeed) {
  ImportSession session = SessionWith({{kRxFrequency, 1}, {kNameColumn, 2}, {kCommentColumn, 3}});
  ParseRecord(session, "146.94,RPT,North ridge\n");
  EXPECT_EQ(Comment(ParseRecord(session, "146.52,CLL,\n")), "");
  ParseRecord(session, "146.94,RPT,North ridge\n");
  EXPECT_EQ(Comment(ParseRecord(session, "146.52,CLL")), "North ridge");
}

TEST(ImportRecord, ReadsADirectionInTheTransmitColumn) {
  EXPECT_EQ(ParseCell(kTxFrequency, "+").shift, 2);
  EXPECT_EQ(ParseCell(kTxFrequency, "+").tx, 6'000U);
  EXPECT_EQ(ParseCell(kTxFrequency, "0.6").shift, 0);
  EXPECT_EQ(ParseCell(kTxFrequency, "0.6").tx, 6'000U);
}

TEST(ImportRecord, TakesADigitInTheTransmitColumnForADirection) {
  EXPECT_EQ(ParseCell(kTxFrequency, "1").shift, 1);
  EXPECT_EQ(ParseCell(kTxFrequency, "5").shift, 0);
  EXPECT_EQ(ParseCell(kTxFrequency, "5").tx, 50'000U);
}

TEST(ImportRecord, LetsTheOffsetColumnOverrideAnEarlierDirection) {
  ImportSession session = SessionWith({{kRxFrequency, 1}, {kTxFrequency, 2}, {kOffsetColumn, 3}});
  EXPECT_EQ(ParseRecord(session, "146.94,+,-\n").shift, 1);
  EXPECT_EQ(ParseRecord(session, "146.94,+,x\n").shift, 0);
  session.columns = Columns({{kRxFrequency, 1}, {kOffsetColumn, 2}, {kTxFrequency, 3}});
  EXPECT_EQ(ParseRecord(session, "146.94,-,+\n").shift, 2);
  EXPECT_EQ(ParseRecord(session, "146.94,-,0.6\n").shift, 1);
}

TEST(ImportTone, IsReadFromADigit) {
  EXPECT_EQ(ParseCell(kToneColumn, "0").tone_mode, 0);
  EXPECT_EQ(ParseCell(kToneColumn, "1").tone_mode, 1);
  EXPECT_EQ(ParseCell(kToneColumn, "2").tone_mode, 2);
  EXPECT_EQ(ParseCell(kToneColumn, "3").tone_mode, 3);
  EXPECT_EQ(ParseCell(kToneColumn, "4").tone_mode, 0);
  EXPECT_EQ(ParseCell(kToneColumn, "9").tone_mode, 0);
  EXPECT_EQ(ParseCell(kToneColumn, "15").tone_mode, 1);
}

TEST(ImportTone, IsReadFromItsLetters) {
  EXPECT_EQ(ParseCell(kToneColumn, "E").tone_mode, 1);
  EXPECT_EQ(ParseCell(kToneColumn, "Enc").tone_mode, 1);
  EXPECT_EQ(ParseCell(kToneColumn, "ED").tone_mode, 2);
  EXPECT_EQ(ParseCell(kToneColumn, "EDx").tone_mode, 2);
  EXPECT_EQ(ParseCell(kToneColumn, "DCS").tone_mode, 3);
  EXPECT_EQ(ParseCell(kToneColumn, "DCS 023").tone_mode, 3);
}

TEST(ImportTone, IsNoneForOtherTexts) {
  for (const char* text : {"", "e", "ed", "dcs", "DC", "none", " E"}) {
    EXPECT_EQ(ParseCell(kToneColumn, text).tone_mode, 0) << text;
  }
}

TEST(ImportTone, IsOverriddenByALaterColumn) {
  ImportSession session = SessionWith({{kRxFrequency, 1}, {kEncFrequency, 2}, {kToneColumn, 3}});
  EXPECT_EQ(ParseRecord(session, "146.94,88.5,\"\",x\n").tone_mode, 0);
  EXPECT_EQ(ParseRecord(session, "146.94,88.5,3\n").tone_mode, 3);
  session.columns = Columns({{kRxFrequency, 1}, {kToneColumn, 2}, {kEncFrequency, 3}});
  EXPECT_EQ(ParseRecord(session, "146.94,ED,88.5\n").tone_mode, 1);
  session.columns = Columns({{kRxFrequency, 1}, {kEncFrequency, 2}, {kDecFrequency, 3}});
  EXPECT_EQ(ParseRecord(session, "146.94,88.5,100.0\n").tone_mode, 2);
}

TEST(ImportSkip, IsReadFromItsFirstCharacter) {
  for (const char* text : {"s", "S", "Skip", "skip", "Sx"}) {
    EXPECT_TRUE(ParseCell(kSkipColumn, text).skip) << text;
  }
  for (const char* text : {"", "x", "1", " s", "no"}) {
    EXPECT_FALSE(ParseCell(kSkipColumn, text).skip) << text;
  }
}

TEST(ImportPower, IsReadFromItsFirstCharacter) {
  for (const char* text : {"", "L", "l", "Low3", "low"}) {
    EXPECT_EQ(ParseCell(kPowerColumn, text).power, ImportPower::kLow) << text;
  }
  for (const char* text : {"M", "m", "Mid", "\x01"}) {
    EXPECT_EQ(ParseCell(kPowerColumn, text).power, ImportPower::kMid) << text;
  }
  for (const char* text : {"H", "h", "High", "\x02"}) {
    EXPECT_EQ(ParseCell(kPowerColumn, text).power, ImportPower::kHigh) << text;
  }
}

TEST(ImportPower, IsLowForAnEmptyCellAndHighForAMissingColumn) {
  EXPECT_EQ(ParseCell(kPowerColumn, "").power, ImportPower::kLow);
  ImportSession session = SessionWith({{kRxFrequency, 1}, {kPowerColumn, 2}});
  EXPECT_EQ(ParseRecord(session, "146.94\n").power, ImportPower::kHigh);
}

TEST(ImportPower, StaysHighForOtherTexts) {
  for (const char* text : {"5 W", "x", "1", "2", "\x03"}) {
    EXPECT_EQ(ParseCell(kPowerColumn, text).power, ImportPower::kHigh) << text;
  }
}

TEST(ImportToneFrequency, CollectsItsDigits) {
  EXPECT_EQ(ParseCell(kEncFrequency, "88.5").encode_tone, 885);
  EXPECT_EQ(ParseCell(kEncFrequency, "88.5 Hz").encode_tone, 885);
  EXPECT_EQ(ParseCell(kEncFrequency, "PL 88.5").encode_tone, 885);
  EXPECT_EQ(ParseCell(kEncFrequency, "100.0").encode_tone, 1'000);
  EXPECT_EQ(ParseCell(kEncFrequency, "67").encode_tone, 67);
  EXPECT_EQ(ParseCell(kEncFrequency, "8x8").encode_tone, 8);
  EXPECT_EQ(ParseCell(kEncFrequency, ".8..85").encode_tone, 885);
  EXPECT_EQ(ParseCell(kEncFrequency, "").encode_tone, 0);
  EXPECT_EQ(ParseCell(kEncFrequency, "none").encode_tone, 0);
}

TEST(ImportToneFrequency, HoldsSixteenBits) {
  EXPECT_EQ(ParseCell(kEncFrequency, "65535").encode_tone, 65'535);
  EXPECT_EQ(ParseCell(kEncFrequency, "65536").encode_tone, 0);
  EXPECT_EQ(ParseCell(kEncFrequency, "66421").encode_tone, 885);
}

TEST(ImportToneFrequency, SwitchesItsModeOnForATone) {
  EXPECT_EQ(ParseCell(kEncFrequency, "88.5").tone_mode, 1);
  EXPECT_EQ(ParseCell(kDecFrequency, "88.5").tone_mode, 2);
  EXPECT_EQ(ParseCell(kDecFrequency, "88.5").decode_tone, 885);
  EXPECT_EQ(ParseCell(kDecFrequency, "88.5").encode_tone, 0);
  EXPECT_EQ(ParseCell(kEncFrequency, "67").tone_mode, 0);
  EXPECT_EQ(ParseCell(kEncFrequency, "88.6").tone_mode, 0);
}

TEST(ImportToneFrequency, KnowsEveryToneOfTheRadio) {
  for (const std::string& tone : image_fixture::ToneTexts()) {
    EXPECT_EQ(ParseCell(kEncFrequency, tone).tone_mode, 1) << tone;
    EXPECT_EQ(ParseCell(kDecFrequency, tone).tone_mode, 2) << tone;
  }
}

TEST(ImportToneFrequency, SwitchesNothingOnWithoutTheToneCheck) {
  ImportSession session = SessionWith({{kRxFrequency, 1}, {kEncFrequency, 2}, {kDecFrequency, 3}});
  session.check_tones = false;
  const ImportRecord record = ParseRecord(session, "146.94,88.5,88.5\n");
  EXPECT_EQ(record.tone_mode, 0);
  EXPECT_EQ(record.encode_tone, 885);
  EXPECT_EQ(record.decode_tone, 885);
}

TEST(ImportTexts, AreCutToTheirLength) {
  EXPECT_EQ(Name(ParseCell(kNameColumn, "NINECHARS")), "NINECHARS");
  EXPECT_EQ(Name(ParseCell(kNameColumn, "TENLETTERS")), "TENLETTER");
  const std::string text = "0123456789012345678901234567890";
  EXPECT_EQ(Comment(ParseCell(kCommentColumn, text)), text);
  EXPECT_EQ(Comment(ParseCell(kCommentColumn, text + "1")), text);
}

TEST(ImportTexts, KeepTheirBytes) {
  EXPECT_EQ(Name(ParseCell(kNameColumn, " \xC4 \xB1 ")), " \xC4 \xB1 ");
}

// Receive, transmit and direction, as they are normalised.
struct Shifted {
  int shift;
  std::uint32_t tx;
  bool operator==(const Shifted&) const = default;
};
void PrintTo(const Shifted& value, std::ostream* out) {
  *out << "shift " << value.shift << " tx " << value.tx;
}

Shifted Normalised(const std::string& rx, const std::string& tx, const std::string& direction) {
  ImportSession session = SessionWith({{kRxFrequency, 1}, {kTxFrequency, 2}, {kOffsetColumn, 3}});
  const ImportRecord record = ParseRecord(session, rx + "," + tx + "," + direction + "\n");
  return {static_cast<int>(record.shift), static_cast<std::uint32_t>(record.tx.hundred_hertz)};
}

TEST(ImportShift, OfASimplexChannelStaysAsItIs) {
  EXPECT_EQ(Normalised("146.52", "", ""), (Shifted{0, 0}));
  EXPECT_EQ(Normalised("146.52", "0.6", ""), (Shifted{0, 6'000}));
  EXPECT_EQ(Normalised("146.52", "99.5", ""), (Shifted{0, 995'000}));
}

TEST(ImportShift, OfATransmitFrequencyThatIsTheReceiveFrequencyIsSimplex) {
  EXPECT_EQ(Normalised("146.52", "146.52", ""), (Shifted{0, 6'000}));
  EXPECT_EQ(Normalised("446", "446", ""), (Shifted{0, 50'000}));
}

TEST(ImportShift, OfFrequenciesUpTo99MHz5IsAnOffsetEvenWhereTheyAreEqual) {
  EXPECT_EQ(Normalised("99.5", "99.5", ""), (Shifted{0, 995'000}));
  EXPECT_EQ(Normalised("99.5001", "99.5001", ""), (Shifted{0, 6'000}));
}

TEST(ImportShift, FollowsTheDistanceOfTheTwoFrequencies) {
  EXPECT_EQ(Normalised("146.94", "146.34", ""), (Shifted{1, 6'000}));
  EXPECT_EQ(Normalised("442.000", "447.000", ""), (Shifted{2, 50'000}));
  EXPECT_EQ(Normalised("146.94", "147.94", ""), (Shifted{2, 10'000}));
  EXPECT_EQ(Normalised("146.94", "148.94", ""), (Shifted{3, 1'489'400}));
  EXPECT_EQ(Normalised("146.94", "144.94", ""), (Shifted{3, 1'449'400}));
}

TEST(ImportShift, KnowsTheSixUsualOffsetsBothWays) {
  EXPECT_EQ(Normalised("438", "437.4", ""), (Shifted{1, 6'000}));
  EXPECT_EQ(Normalised("438", "437", ""), (Shifted{1, 10'000}));
  EXPECT_EQ(Normalised("438", "436.4", ""), (Shifted{1, 16'000}));
  EXPECT_EQ(Normalised("438", "435", ""), (Shifted{1, 30'000}));
  EXPECT_EQ(Normalised("438", "433", ""), (Shifted{1, 50'000}));
  EXPECT_EQ(Normalised("438", "430.4", ""), (Shifted{1, 76'000}));
  EXPECT_EQ(Normalised("438", "438.6", ""), (Shifted{2, 6'000}));
  EXPECT_EQ(Normalised("438", "439", ""), (Shifted{2, 10'000}));
  EXPECT_EQ(Normalised("438", "439.6", ""), (Shifted{2, 16'000}));
  EXPECT_EQ(Normalised("438", "441", ""), (Shifted{2, 30'000}));
  EXPECT_EQ(Normalised("438", "443", ""), (Shifted{2, 50'000}));
  EXPECT_EQ(Normalised("438", "445.6", ""), (Shifted{2, 76'000}));
  EXPECT_EQ(Normalised("438", "445.6001", ""), (Shifted{3, 4'456'001}));
  EXPECT_EQ(Normalised("438", "445.5999", ""), (Shifted{3, 4'455'999}));
}

TEST(ImportShift, TellsAnOffsetFromAFrequencyAt99MHz5) {
  EXPECT_EQ(Normalised("146.94", "99.5", "+"), (Shifted{2, 995'000}));
  EXPECT_EQ(Normalised("146.94", "99.5001", "+"), (Shifted{3, 995'001}));
  EXPECT_EQ(Normalised("146.94", "99.5", ""), (Shifted{0, 995'000}));
  EXPECT_EQ(Normalised("146.94", "99.5001", ""), (Shifted{3, 995'001}));
}

TEST(ImportShift, WithADirectionTakesTheUsualOffsetWhereNoneIsGiven) {
  EXPECT_EQ(Normalised("440", "", "+"), (Shifted{2, 50'000}));
  EXPECT_EQ(Normalised("146", "", "+"), (Shifted{2, 6'000}));
  EXPECT_EQ(Normalised("146", "", "-"), (Shifted{1, 6'000}));
  EXPECT_EQ(Normalised("146", "", "S"), (Shifted{3, 6'000}));
}

TEST(ImportShift, TakesTheHigherUsualOffsetFrom280MHzOn) {
  EXPECT_EQ(Normalised("279.9999", "", "-"), (Shifted{1, 6'000}));
  EXPECT_EQ(Normalised("280", "", "-"), (Shifted{1, 50'000}));
  EXPECT_EQ(Normalised("279.9999", "279.9999", ""), (Shifted{0, 6'000}));
  EXPECT_EQ(Normalised("280", "280", ""), (Shifted{0, 50'000}));
}

TEST(ImportShift, WithADirectionKeepsAnyOffset) {
  EXPECT_EQ(Normalised("146.94", "0.55", "-"), (Shifted{1, 5'500}));
  EXPECT_EQ(Normalised("51.5", "52.5", "S"), (Shifted{3, 525'000}));
}

TEST(ImportShift, WithADirectionStillFollowsTheDistance) {
  EXPECT_EQ(Normalised("146.94", "146.34", "+"), (Shifted{1, 6'000}));
  EXPECT_EQ(Normalised("146.94", "147.54", "S"), (Shifted{2, 6'000}));
  EXPECT_EQ(Normalised("146.94", "435", "-"), (Shifted{3, 4'350'000}));
  EXPECT_EQ(Normalised("146.94", "146.94", "-"), (Shifted{3, 1'469'400}));
}

}  // namespace
}  // namespace qz7
