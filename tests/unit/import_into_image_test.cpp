#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/interchange/import.h"
#include "tests/unit/interchange_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace interchange_fixture;

class Import : public testing::Test {
 protected:
  std::optional<ImportResult> Run(std::string_view file) {
    return ImportIntoImage(*image_, session_, BytesOfText(file), request_);
  }

  std::unique_ptr<CloneImage> image_ = MakeRadio();
  ImportSession session_;
  ImportRequest request_;
};

TEST_F(Import, TakesNamedColumnsFromTheDefaultStart) {
  Program(*image_, 1, 4);
  request_.columns = Columns({{kRxFrequency, 2}, {kNameColumn, 1}});
  const auto result = Run("A,146.52\r\nB,none\r\nC,446.0\r\n");
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(result->listed, 2U);
  EXPECT_EQ(result->placed, 2U);
  EXPECT_EQ(result->start, 5);
  EXPECT_EQ(NameInRecord(*image_, 5), "A       ");
  EXPECT_EQ(NameInRecord(*image_, 6), "C       ");
}

TEST_F(Import, TakesTheColumnsOfTheHeaderLine) {
  request_.options.headers = true;
  ASSERT_TRUE(Run("Call Sign,Output Frequency\nRPT1,146.94\n").has_value());
  EXPECT_EQ(NameInRecord(*image_, 1), "RPT1    ");
}

TEST_F(Import, LetsNamedColumnsOverrideTheHeaderLine) {
  request_.options.headers = true;
  request_.columns = Columns({{kNameColumn, 3}, {kCommentColumn, 1}});
  ASSERT_TRUE(Run("Name,RX Frequency,Town\nRPT1,146.94,Hill\n").has_value());
  EXPECT_EQ(session_.columns, Columns({{kRxFrequency, 2}, {kNameColumn, 3}, {kCommentColumn, 1}}));
  EXPECT_EQ(NameInRecord(*image_, 1), "Hill    ");
  EXPECT_EQ(ChannelCommentText(*image_, 1), "RPT1");
}

TEST_F(Import, GivesANamedColumnToItsFieldAlone) {
  request_.options.headers = true;
  request_.columns = Columns({{kCommentColumn, 1}});
  ASSERT_TRUE(Run("Name,RX Frequency\nRPT1,146.94\n").has_value());
  EXPECT_EQ(NameInRecord(*image_, 1), "        ");
  EXPECT_EQ(ChannelCommentText(*image_, 1), "RPT1");
}

TEST_F(Import, TakesTheNamedRowsFromTheNamedStart) {
  request_.columns = Columns({{kRxFrequency, 1}, {kNameColumn, 2}});
  request_.rows = {1, 2};
  request_.start = 100;
  const auto result = Run("146.52,A\n146.54,B\n146.56,C\n");
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(result->listed, 3U);
  EXPECT_EQ(result->placed, 2U);
  EXPECT_EQ(NameInRecord(*image_, 100), "B       ");
  EXPECT_EQ(NameInRecord(*image_, 101), "C       ");
  EXPECT_EQ(FlagByte(*image_, 102), 0x00);
}

TEST_F(Import, SplitsBySeparatorAndQuoteOfTheRequest) {
  request_.options.field_separator = ';';
  request_.options.text_separator = '\'';
  request_.columns = Columns({{kRxFrequency, 1}, {kNameColumn, 2}});
  ASSERT_TRUE(Run("146.52;'A;B'\n").has_value());
  EXPECT_EQ(NameInRecord(*image_, 1), "A;B     ");
}

TEST_F(Import, LeavesTheImageAloneWhenItIsRefused) {
  request_.columns = Columns({{kRxFrequency, 1}});
  const CloneImage before = *image_;
  request_.start = 240;
  EXPECT_FALSE(Run("146.52\n146.54\n").has_value());
  request_.start = 0;
  EXPECT_FALSE(Run("146.52\n").has_value());
  EXPECT_EQ(*image_, before);
  EXPECT_EQ(test_seams.messages.size(), 2U);
}

TEST_F(Import, OfAnEmptyFileWithHeadersFailsTwice) {
  request_.options.headers = true;
  request_.options.title = "empty.csv";
  EXPECT_FALSE(Run("").has_value());
  EXPECT_EQ(ShownTexts(),
            (std::vector<std::string>{"Error reading file", "Error reading file: empty.csv"}));
}

TEST_F(Import, StartsEachFileWithItsOwnSeparator) {
  request_.columns = Columns({{kRxFrequency, 1}, {kNameColumn, 2}});
  ASSERT_TRUE(Run("146.52,\"A\n146.54,B\n").has_value());
  EXPECT_EQ(session_.splitter.separator, '"');
  ASSERT_TRUE(Run("146.52,A\n").has_value());
  EXPECT_EQ(NameInRecord(*image_, 3), "A       ");
}

TEST_F(Import, ReadsTheSignOfAnOddSplitFromUtf8) {
  request_.columns = Columns({{kRxFrequency, 1}, {kTxFrequency, 2}, {kOffsetColumn, 3}});
  ASSERT_TRUE(Run("\xEF\xBB\xBF"
                  "145.9,435.0,\xC2\xB1\n")
                  .has_value());
  EXPECT_EQ(RecordBytes(*image_, 1)[17] & 0x03, 3);
}

}  // namespace
}  // namespace qz7
