#include "core/interchange/import_selection.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "core/image/derived_tables.h"
#include "core/interchange/import_columns.h"
#include "tests/unit/failing_new.h"
#include "tests/unit/interchange_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace interchange_fixture;

// A list that is opened on a file with these columns.
class Selection : public testing::Test {
 protected:
  void Open(std::string_view file, std::initializer_list<Column> columns) {
    session_.columns = Columns(columns);
    ImportLines lines = Lines(file);
    session_.line_count = CountLines(lines);
    list_ = OpenSelection(*image_, session_, lines);
  }
  void OpenNames(std::string_view file) { Open(file, {{kRxFrequency, 1}, {kNameColumn, 2}}); }

  // As many usable lines as this.
  void OpenMany(int lines) {
    std::string file;
    for (int i = 0; i < lines; ++i) {
      file += "146.52,CH" + std::to_string(i) + "\n";
    }
    OpenNames(file);
  }

  std::vector<std::string> ListedNames() const {
    std::vector<std::string> names;
    for (const ImportRecord& record : list_->Rows()) {
      names.emplace_back(record.name.data());
    }
    return names;
  }

  std::vector<int> Rows(int count) const {
    std::vector<int> rows(static_cast<std::size_t>(count));
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
  }

  std::unique_ptr<CloneImage> image_ = MakeRadio();
  ImportSession session_;
  std::optional<ImportList> list_;
};

using Names = std::vector<std::string>;

TEST_F(Selection, ListsTheLinesThatTheRadioCanReceive) {
  OpenNames("146.52,A\nx,B\n735.0,C\n446.0,D\n\n0.4999,E\n0.5,F\n");
  EXPECT_EQ(ListedNames(), (Names{"A", "D", "F"}));
  EXPECT_EQ(list_->record_count, 3);
}

TEST_F(Selection, ListsNothingOfAFileOutsideTheBands) {
  OpenNames("735.0,A\n1296.0,B\nname,frequency\n");
  EXPECT_EQ(ListedNames(), Names{});
  EXPECT_EQ(list_->record_count, 0);
}

TEST_F(Selection, FollowsTheRadiosVersion) {
  (*image_)[3073] = 0;
  OpenNames("146.52,A\n162.55,B\n");
  EXPECT_EQ(ListedNames(), Names{"A"});
}

TEST_F(Selection, ListsAnEmptyFileAsNothing) {
  OpenNames("");
  EXPECT_EQ(list_->record_count, 0);
  EXPECT_TRUE(list_->Rows().empty());
}

TEST_F(Selection, DropsTheHeaderLine) {
  session_.options.headers = true;
  OpenNames("145.0,HEADER\n146.52,A\n");
  EXPECT_EQ(ListedNames(), Names{"A"});
  EXPECT_EQ(list_->record_count, 1);
}

TEST_F(Selection, EndsWhenTheHeaderLineCannotBeRead) {
  session_.options.headers = true;
  session_.options.title = "list.csv";
  OpenNames("");
  EXPECT_FALSE(list_.has_value());
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "Error reading file: list.csv");
  EXPECT_EQ(test_seams.messages[0].caption, "File error");
}

TEST_F(Selection, ListsNothingOfFixedLengthFieldsButCountsTheLines) {
  session_.options.delimited = false;
  OpenNames("146.52,A\n446.0,B\n");
  EXPECT_TRUE(list_->Rows().empty());
  EXPECT_EQ(list_->record_count, 2);
}

TEST_F(Selection, SwitchesTheToneCheckOffForTheRestOfTheRunByColumn4) {
  constexpr std::string_view kFile = "146.94,88.5,RPT1,North,x\n";
  Open(kFile, {{kRxFrequency, 1}, {kEncFrequency, 2}, {kNameColumn, 3}, {kCommentColumn, 5}});
  EXPECT_TRUE(session_.check_tones);
  EXPECT_EQ(list_->Rows()[0].tone_mode, 1);
  Open(kFile, {{kRxFrequency, 1}, {kEncFrequency, 2}, {kCommentColumn, 4}});
  EXPECT_FALSE(session_.check_tones);
  EXPECT_EQ(list_->Rows()[0].tone_mode, 0);
  EXPECT_EQ(list_->Rows()[0].encode_tone, 885);
  Open(kFile, {{kRxFrequency, 1}, {kEncFrequency, 2}});
  EXPECT_FALSE(session_.check_tones);
  EXPECT_EQ(list_->Rows()[0].tone_mode, 0);
}

TEST_F(Selection, LeavesTheToneCheckOnForFixedLengthFields) {
  session_.options.delimited = false;
  Open("146.94,88.5\n", {{kRxFrequency, 1}, {kEncFrequency, 4}});
  EXPECT_TRUE(session_.check_tones);
}

TEST_F(Selection, ListsTheFirst65535LinesOfALongerFile) {
  std::string file;
  for (int i = 0; i < 65'536; ++i) {
    file += "146.52\n";
  }
  OpenNames(file);
  EXPECT_EQ(list_->Rows().size(), 65'535U);
  EXPECT_EQ(list_->record_count, 65'535);
  session_.options.headers = true;
  OpenNames(file);
  EXPECT_EQ(list_->Rows().size(), 65'534U);
}

TEST_F(Selection, WithoutMemoryListsNothingAndSaysSo) {
  session_.columns = Columns({{kRxFrequency, 1}});
  ImportLines lines = Lines("146.52\n");
  session_.line_count = 1;
  nothrow_new_fails = true;
  const auto list = OpenSelection(*image_, session_, lines);
  nothrow_new_fails = false;
  ASSERT_TRUE(list.has_value());
  EXPECT_TRUE(list->Rows().empty());
  EXPECT_EQ(list->record_count, 0);
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "Out of Memory");
  EXPECT_EQ(test_seams.messages[0].caption, "ERROR");
}

TEST_F(Selection, PlacesTheSelectedRowsOneBehindTheOther) {
  OpenNames("146.52,A\n146.54,B\n146.56,C\n146.58,D\n");
  EXPECT_EQ(AcceptSelection(*image_, *list_, {0, 2, 3}, 50, test_region), ImportAnswer::kPlaced);
  EXPECT_EQ(NameInRecord(*image_, 50), "A       ");
  EXPECT_EQ(NameInRecord(*image_, 51), "C       ");
  EXPECT_EQ(NameInRecord(*image_, 52), "D       ");
  EXPECT_EQ(FlagByte(*image_, 52), 0x03);
  EXPECT_EQ(FlagByte(*image_, 49), 0x00);
  EXPECT_EQ(FlagByte(*image_, 53), 0x00);
  EXPECT_TRUE(ShownTexts().empty());
}

TEST_F(Selection, RebuildsTheDerivedTables) {
  OpenNames("146.52,A\n");
  (*image_)[56] = 239;
  AcceptSelection(*image_, *list_, {0}, 50, test_region);
  EXPECT_EQ((*image_)[56], 240);
  EXPECT_EQ((*image_)[180 + 12 * 49] & 0x01, 0x01);
  EXPECT_EQ(image_fixture::BytesAt(*image_, 11'692, 9),
            (Bytes{'A', ' ', ' ', ' ', ' ', ' ', ' ', ' ', 0}));
}

TEST_F(Selection, WithoutASelectedRowOnlyRebuildsTheTables) {
  OpenNames("146.52,A\n");
  Program(*image_, 7, 7);
  EXPECT_EQ(AcceptSelection(*image_, *list_, {}, 50, test_region), ImportAnswer::kPlaced);
  EXPECT_EQ((*image_)[180 + 12 * 6], 0x01);
  EXPECT_EQ(FlagByte(*image_, 50), 0x00);
}

TEST_F(Selection, IsRefusedWhereItReachesBehindTheLastChannel) {
  OpenMany(12);
  const CloneImage before = *image_;
  EXPECT_EQ(AcceptSelection(*image_, *list_, Rows(12), 230, test_region), ImportAnswer::kTooMany);
  EXPECT_EQ(*image_, before);
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text,
            "Too many frequencies are selected.\nDeselect some of the frequencies so that\n"
            "Selected is less that Available - Start.");
  EXPECT_EQ(test_seams.messages[0].caption, "Import Error");
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kWarning);
  EXPECT_EQ(AcceptSelection(*image_, *list_, Rows(12), 229, test_region), ImportAnswer::kPlaced);
  EXPECT_EQ(NameInRecord(*image_, 229), "CH0     ");
  EXPECT_EQ(NameInRecord(*image_, 240), "CH11    ");
  EXPECT_EQ(FlagByte(*image_, 228), 0x00);
}

TEST_F(Selection, CountsToTheImagesOwnChannelCount) {
  OpenMany(2);
  image_ = MakeRadio(100);
  EXPECT_EQ(AcceptSelection(*image_, *list_, Rows(2), 100, test_region), ImportAnswer::kTooMany);
  EXPECT_EQ(AcceptSelection(*image_, *list_, Rows(2), 99, test_region), ImportAnswer::kPlaced);
}

TEST_F(Selection, WithNoRowIsRefusedTwoBehindTheLastChannel) {
  OpenMany(1);
  EXPECT_EQ(AcceptSelection(*image_, *list_, {}, 241, test_region), ImportAnswer::kPlaced);
  EXPECT_EQ(AcceptSelection(*image_, *list_, {}, 242, test_region), ImportAnswer::kTooMany);
}

TEST_F(Selection, IsRefusedForAStartBelow1) {
  OpenMany(2);
  for (const int start : {0, -1, -2'147'483'647 - 1}) {
    test_seams.messages.clear();
    const CloneImage before = *image_;
    EXPECT_EQ(AcceptSelection(*image_, *list_, Rows(2), start, test_region),
              ImportAnswer::kIllegalStart);
    EXPECT_EQ(*image_, before);
    ASSERT_EQ(test_seams.messages.size(), 1U);
    EXPECT_EQ(test_seams.messages[0].text, "Illegal Start Channel");
    EXPECT_EQ(test_seams.messages[0].caption, "Import Error");
    EXPECT_EQ(test_seams.messages[0].icon, Icon::kWarning);
  }
  EXPECT_EQ(AcceptSelection(*image_, *list_, Rows(2), 1, test_region), ImportAnswer::kPlaced);
}

TEST_F(Selection, IsRefusedForTheLargestStart) {
  OpenMany(2);
  EXPECT_EQ(AcceptSelection(*image_, *list_, Rows(2), 2'147'483'647, test_region),
            ImportAnswer::kTooMany);
}

TEST_F(Selection, OverwritesWithoutAsking) {
  OpenNames("146.52,NEW\n");
  Program(*image_, 50, 50);
  (*image_)[3407] = 0x0D;
  EXPECT_EQ(AcceptSelection(*image_, *list_, {0}, 50, test_region), ImportAnswer::kPlaced);
  EXPECT_EQ(NameInRecord(*image_, 50), "NEW     ");
  EXPECT_EQ(FlagByte(*image_, 50), 0x03);
  EXPECT_TRUE(ShownTexts().empty());
}

TEST_F(Selection, LeavesOutRowsThatTheListDoesNotHave) {
  OpenNames("146.52,A\n");
  EXPECT_EQ(AcceptSelection(*image_, *list_, {-1, 0, 1}, 50, test_region), ImportAnswer::kPlaced);
  EXPECT_EQ(FlagByte(*image_, 50), 0x00);
  EXPECT_EQ(NameInRecord(*image_, 51), "A       ");
  EXPECT_EQ(FlagByte(*image_, 52), 0x00);
}

TEST_F(Selection, WritesNothingBehindTheChannelsOfAHostileCount) {
  OpenMany(3);
  image_ = MakeRadio(65'535);
  const CloneImage before = *image_;
  EXPECT_EQ(AcceptSelection(*image_, *list_, Rows(3), 60'000, test_region), ImportAnswer::kPlaced);
  CloneImage rebuilt = before;
  RebuildDerivedTables(rebuilt);
  EXPECT_EQ(*image_, rebuilt);
}

ImportRecord RowRecord(int shift, int tone) {
  ImportRecord record;
  record.rx = Kilohertz(146'940);
  record.shift = static_cast<Shift>(shift);
  record.encode_tone = static_cast<std::uint16_t>(tone);
  record.name = {'R', 'P', 'T', '1'};
  record.comment = {'N', 'o', 'r', 't', 'h'};
  return record;
}

TEST(SelectionRow, HasItsColumnsBetweenTabs) {
  EXPECT_EQ(FormatImportRow(RowRecord(0, 885)), "146.9400\t \t88.5\tRPT1\tNorth");
  EXPECT_EQ(FormatImportRow(RowRecord(1, 1'000)), "146.9400\t-\t100.0\tRPT1\tNorth");
  EXPECT_EQ(FormatImportRow(RowRecord(2, 670)), "146.9400\t+\t67.0\tRPT1\tNorth");
  EXPECT_EQ(FormatImportRow(RowRecord(3, 670)), "146.9400\t\xB1\t67.0\tRPT1\tNorth");
}

TEST(SelectionRow, LeavesTheToneBlankOutsideItsRange) {
  EXPECT_EQ(FormatImportRow(RowRecord(0, 0)), "146.9400\t \t     \tRPT1\tNorth");
  EXPECT_EQ(FormatImportRow(RowRecord(0, 1)), "146.9400\t \t0.1\tRPT1\tNorth");
  EXPECT_EQ(FormatImportRow(RowRecord(0, 9'998)), "146.9400\t \t999.8\tRPT1\tNorth");
  EXPECT_EQ(FormatImportRow(RowRecord(0, 9'999)), "146.9400\t \t     \tRPT1\tNorth");
}

TEST(SelectionRow, ShowsLowFrequenciesWithFourDecimals) {
  ImportRecord record = RowRecord(0, 0);
  record.rx = Kilohertz(531);
  record.name = {};
  record.comment = {};
  EXPECT_EQ(FormatImportRow(record), "0.5310\t \t     \t\t");
}

TEST(SelectionRow, KeepsTheZerosBehindThePoint) {
  ImportRecord record = RowRecord(0, 885);
  record.rx = HundredHertz(1'460'500);
  EXPECT_EQ(FormatImportRow(record), "146.0500\t \t88.5\tRPT1\tNorth");
  record.rx = HundredHertz(1'460'001);
  EXPECT_EQ(FormatImportRow(record), "146.0001\t \t88.5\tRPT1\tNorth");
}

TEST(SelectionRow, HoldsTheLongestTexts) {
  ImportRecord record = RowRecord(0, 885);
  record.rx = HundredHertz(0x7FFFFFFF);
  std::fill_n(record.name.begin(), 9, 'n');
  std::fill_n(record.comment.begin(), 31, 'c');
  EXPECT_EQ(FormatImportRow(record),
            "214748.3647\t \t88.5\t" + std::string(9, 'n') + "\t" + std::string(31, 'c'));
}

}  // namespace
}  // namespace qz7
