#include "core/files/csv_export.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/image/derived_tables.h"
#include "tests/unit/image_fixture.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

using namespace image_fixture;

std::string Titles() {
  return "\"RX Frequency\",\"TX Frequency\",\"Offset\",\"Tone\",\"Skip\",\"Power\",\"Enc "
         "Frequency\","
         "\"Dec Frequency\",\"Name\",\"Comment\"\r\n";
}

// 145.5 MHz, simplex, no tone (index 12), high power, "HILLTOP ".
Bytes SimplexRecord() {
  return {0x00, 0x00, 0x14, 0x55, 0x00, 0x00, 'H',  'I',  'L',  'L',  'T',
          'O',  'P',  ' ',  0x00, 0x06, 0x00, 0x0C, 0x0C, 0x00, 0x00, 0x00};
}

// The same on `khz`, six BCD digits, with other bytes 14 to 18: offset, shift/power/tone mode,
// tone.
Bytes RecordOn(Bytes khz, Bytes offset, int packed, int tone) {
  Bytes record = SimplexRecord();
  std::copy(khz.begin(), khz.end(), record.begin() + 2);
  std::copy(offset.begin(), offset.end(), record.begin() + 14);
  record[17] = static_cast<std::uint8_t>(packed);
  record[18] = static_cast<std::uint8_t>(tone);
  return record;
}

void PutComment(CloneImage& image, int n, const std::string& text) {
  PutBytes(image, static_cast<std::size_t>(13'570 + 32 * n), {text.begin(), text.end()});
}

// The line of one channel 7 with this record.
std::string LineOf(const Bytes& record, std::uint8_t flags = 0x03) {
  auto image = MakeImage();
  PutChannel(*image, 7, record, flags);
  RebuildDerivedTables(*image);
  const std::string csv = ExportCsv(*image);
  EXPECT_EQ(csv.substr(0, Titles().size()), Titles());
  return csv.substr(Titles().size());
}

TEST(CsvExport, OfNoProgrammedChannelIsTheTitlesAlone) {
  auto image = MakeImage();
  RebuildDerivedTables(*image);
  EXPECT_EQ(ExportCsv(*image), Titles());
}

TEST(CsvExport, WritesASimplexChannelWithTheUsualOffsetInTheSecondColumn) {
  EXPECT_EQ(LineOf(SimplexRecord()),
            "\"145.5000\",\"0.6000\",\"\",\"\",\"\",\"High\",\"100.0\",\"100.0\",\"HILLTOP \","
            "\"\"\r\n");
}

TEST(CsvExport, WritesFiveMegahertzForASimplexChannelOn446) {
  EXPECT_EQ(LineOf(RecordOn({0x44, 0x60, 0x00}, {0x00, 0x06, 0x00}, 0x0C, 12)),
            "\"446.0000\",\"5.0000\",\"\",\"\",\"\",\"High\",\"100.0\",\"100.0\",\"HILLTOP \","
            "\"\"\r\n");
}

TEST(CsvExport, TakesTheHigherOffsetFrom280MHzOn) {
  const auto second = [](Bytes khz) {
    return LineOf(RecordOn(std::move(khz), {0, 0, 0}, 0x0C, 12)).substr(11, 8);
  };
  EXPECT_EQ(second({0x27, 0x99, 0x99}), "\"0.6000\"");
  EXPECT_EQ(second({0x28, 0x00, 0x00}), "\"5.0000\"");
}

TEST(CsvExport, WritesTheOffsetOfMinusAndPlus) {
  EXPECT_EQ(LineOf(RecordOn({0x14, 0x69, 0x40}, {0x00, 0x06, 0x00}, 0x0D, 12)).substr(0, 24),
            "\"146.9400\",\"0.6000\",\"-\",");
  EXPECT_EQ(LineOf(RecordOn({0x44, 0x20, 0x00}, {0x00, 0x50, 0x00}, 0x0E, 12)).substr(0, 24),
            "\"442.0000\",\"5.0000\",\"+\",");
}

TEST(CsvExport, WritesTheTransmitFrequencyOfAnOddSplitAndTheSignB1) {
  EXPECT_EQ(LineOf(RecordOn({0x14, 0x50, 0x12}, {0x43, 0x50, 0x00}, 0x0F, 12)).substr(0, 26),
            "\"145.0120\",\"435.0000\",\"\xB1\",");
}

TEST(CsvExport, WritesFrequenciesBelowOneMegahertzWithALeadingZero) {
  EXPECT_EQ(LineOf(RecordOn({0x00, 0x05, 0x31}, {0, 0, 0}, 0x0C, 12)).substr(0, 9), "\"0.5310\",");
}

TEST(CsvExport, MarksToneEncodeAndToneSquelch) {
  const auto marked = [](int packed) {
    return LineOf(RecordOn({0x14, 0x55, 0x00}, {0, 0, 0}, packed, 8)).substr(20);
  };
  const std::string rest = ",\"\",\"High\",\"88.5\",\"88.5\",\"HILLTOP \",\"\"\r\n";
  EXPECT_EQ(marked(0x0C), "\"\",\"\"" + rest);
  EXPECT_EQ(marked(0x1C), "\"\",\"E\"" + rest);
  EXPECT_EQ(marked(0x2C), "\"\",\"ED\"" + rest);
}

TEST(CsvExport, WritesNoMarkForDcs) {
  EXPECT_EQ(LineOf(RecordOn({0x14, 0x55, 0x00}, {0, 0, 0}, 0x3C, 8)).substr(20, 6), "\"\",\"\",");
}

TEST(CsvExport, MarksSkip) {
  EXPECT_EQ(LineOf(SimplexRecord(), 0x07).substr(26, 7), "\"Skip\",");
  EXPECT_EQ(LineOf(SimplexRecord(), 0x03).substr(26, 3), "\"\",");
}

TEST(CsvExport, NamesTheFourPowers) {
  const auto power = [](int packed) {
    const std::string line = LineOf(RecordOn({0x14, 0x55, 0x00}, {0, 0, 0}, packed, 12));
    return line.substr(29, line.find(',', 29) - 29);
  };
  EXPECT_EQ(power(0x00), "\"Low1\"");
  EXPECT_EQ(power(0x04), "\"Low2\"");
  EXPECT_EQ(power(0x08), "\"Low3\"");
  EXPECT_EQ(power(0x0C), "\"High\"");
}

TEST(CsvExport, WritesAMaskedChannelLikeAnyOther) {
  EXPECT_EQ(LineOf(SimplexRecord(), 0x01), LineOf(SimplexRecord(), 0x03));
}

TEST(CsvExport, DoesNotEscapeQuotationMarksAndCommas) {
  auto image = MakeImage();
  Bytes record = SimplexRecord();
  record[6] = '"';
  record[7] = ',';
  PutChannel(*image, 1, record);
  PutComment(*image, 1, "a \"b\", c");
  RebuildDerivedTables(*image);
  EXPECT_EQ(ExportCsv(*image).substr(Titles().size()),
            "\"145.5000\",\"0.6000\",\"\",\"\",\"\",\"High\",\"100.0\",\"100.0\",\"\",LLTOP \","
            "\"a \"b\", c\"\r\n");
}

TEST(CsvExport, WritesAtMost31CharactersOfAComment) {
  auto image = MakeImage();
  PutChannel(*image, 1, SimplexRecord());
  PutComment(*image, 1, "0123456789012345678901234567890X");
  RebuildDerivedTables(*image);
  EXPECT_NE(ExportCsv(*image).find("\"0123456789012345678901234567890\"\r\n"), std::string::npos);
}

TEST(CsvExport, LeavesOutChannelsThatAreNotProgrammed) {
  EXPECT_EQ(LineOf(SimplexRecord(), 0x02), "");
}

TEST(CsvExport, WritesTheChannelsInTheirOrder) {
  auto image = MakeImage();
  PutChannel(*image, 239, RecordOn({0x44, 0x60, 0x00}, {0, 0, 0}, 0x0C, 12));
  PutChannel(*image, 2, SimplexRecord());
  RebuildDerivedTables(*image);
  const std::string csv = ExportCsv(*image);
  EXPECT_LT(csv.find("145.5000"), csv.find("446.0000"));
}

TEST(CsvExport, WritesChannel240FromItsEmptyEntryAndWhateverItsNameEntryHolds) {
  auto image = MakeImage();
  PutChannel(*image, 240, RecordOn({0x44, 0x60, 0x00}, {0x00, 0x50, 0x00}, 0x1A, 8));
  PutBytes(*image, 13'592, {'O', 'L', 'D', 0});
  PutComment(*image, 240, "last");
  RebuildDerivedTables(*image);
  EXPECT_EQ(ExportCsv(*image), Titles() +
                                   "\"0.0000\",\"0.6000\",\"\",\"\",\"\",\"Low3\",\"0.0\",\"0.0\","
                                   "\"OLD\",\"last\"\r\n");
}

TEST(CsvExport, EndsAtTheChannelsThatThereAreWhateverTheCountSays) {
  auto image = MakeImage(65'535);
  PutChannel(*image, 240, SimplexRecord());
  EXPECT_EQ(ExportCsv(*image).substr(Titles().size(), 9), "\"0.0000\",");
  auto small = MakeImage(6);
  PutChannel(*small, 7, SimplexRecord());
  EXPECT_EQ(ExportCsv(*small), Titles());
}

TEST(CsvExport, WritesTheFileByteForByte) {
  const TempFolder folder;
  auto image = MakeImage();
  PutChannel(*image, 1, RecordOn({0x14, 0x50, 0x12}, {0x43, 0x50, 0x00}, 0x0F, 12));
  RebuildDerivedTables(*image);
  const std::string path = folder.File("list.csv");
  PutFile(path, {'o', 'l', 'd'});
  ASSERT_TRUE(WriteCsvFile(*image, path));
  const std::string csv = ExportCsv(*image);
  EXPECT_EQ(FileBytes(path), Bytes(csv.begin(), csv.end()));
  EXPECT_TRUE(ShownTexts().empty());
}

TEST(CsvExport, SaysWhichFileCannotBeCreated) {
  const TempFolder folder;
  const std::string path = folder.File("no such folder") + "/list.csv";
  EXPECT_FALSE(WriteCsvFile(*MakeImage(), path));
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "Cannot create file:\n" + path);
  EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
}

TEST(CsvExport, AsksForACsvFileInTheDataFolder) {
  const FileBox box = ExportFileBox("C:\\radio", "last.csv");
  EXPECT_STREQ(box.title, "Export Radio File");
  ASSERT_EQ(box.filters.size(), 1U);
  EXPECT_STREQ(box.filters[0].text, "Comma delimited (*.csv)");
  EXPECT_STREQ(box.filters[0].pattern, "*.csv");
  EXPECT_STREQ(box.default_extension, "csv");
  EXPECT_EQ(box.folder, "C:\\radio");
  EXPECT_EQ(box.initial_name, "last.csv");
}

// 146.94 MHz down by 600 kHz, 88.5 Hz, every bit of the first byte told apart.
TEST(SummaryEntry, IsReadFieldByField) {
  Bytes entry = {0x01, 0x00, 0x70, 0x36, 0xE0, 0x00, 0x10, 0x4C, 0xDF, 0x00, 0x75, 0x03};
  const ChannelSummary plain = DecodeSummary(entry.data());
  EXPECT_TRUE(plain.in_use);
  EXPECT_FALSE(plain.tone_encoder || plain.tone_squelch || plain.skip);
  EXPECT_EQ(plain.shift, 0);
  EXPECT_EQ(plain.receive_10hz, 14'694'000U);
  EXPECT_EQ(plain.transmit_10hz, 14'634'000U);
  EXPECT_EQ(plain.tone, 885);
  entry[0] = 0x02;
  EXPECT_TRUE(DecodeSummary(entry.data()).tone_encoder);
  EXPECT_FALSE(DecodeSummary(entry.data()).in_use);
  entry[0] = 0x04;
  EXPECT_TRUE(DecodeSummary(entry.data()).tone_squelch);
  entry[0] = 0x08;
  EXPECT_TRUE(DecodeSummary(entry.data()).skip);
  entry[0] = 0xF0;
  EXPECT_EQ(DecodeSummary(entry.data()).shift, 3);
  entry[0] = 0x10;
  EXPECT_EQ(DecodeSummary(entry.data()).shift, 1);
}

}  // namespace
}  // namespace qz7
