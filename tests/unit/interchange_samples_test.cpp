#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/interchange/import.h"
#include "tests/unit/interchange_fixture.h"
#include "tests/unit/samples.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

// The lists in samples/, imported as their README says.
namespace qz7 {
namespace {

using namespace interchange_fixture;

Bytes Sample(const char* name) { return FileBytes(SamplePath(name)); }

class Samples : public testing::Test {
 protected:
  void Import(const char* name) {
    const Bytes bytes = Sample(name);
    ASSERT_FALSE(bytes.empty()) << name;
    result_ = ImportIntoImage(*image_, session_, bytes, request_);
    ASSERT_TRUE(result_.has_value());
    EXPECT_TRUE(ShownTexts().empty());
  }
  void ImportWithHeaders(const char* name, char separator = ',') {
    request_.options.headers = true;
    request_.options.field_separator = separator;
    Import(name);
  }
  std::string Comment(int n) const { return std::string(ChannelCommentText(*image_, n)); }

  std::unique_ptr<CloneImage> image_ = MakeRadio();
  ImportSession session_;
  ImportRequest request_;
  std::optional<ImportResult> result_;
};

TEST_F(Samples, HoldAJourney) {
  ImportWithHeaders("journey.tpe");
  EXPECT_EQ(result_->placed, 16U);
  EXPECT_EQ(RecordBytes(*image_, 1),
            (Bytes{0x00, 0x00, 0x14, 0x66, 0x10, 0x00, 'H',  'A',  'R',  'B',  'O',
                   'U',  'R',  ' ',  0x00, 0x06, 0x00, 0x1D, 0x08, 0x00, 0x00, 0x00}));
  EXPECT_EQ(Comment(1), "Harbour bridge, east end");
  EXPECT_EQ(RecordBytes(*image_, 10)[17], 0x1E);  // plus, high power, a tone sent
  EXPECT_EQ(RecordBytes(*image_, 3)[17], 0x0D);   // no tone
  EXPECT_EQ(RecordBytes(*image_, 15)[17], 0x0C);  // simplex
  EXPECT_TRUE(session_.check_tones);
}

TEST_F(Samples, HoldARepeaterDirectory) {
  ImportWithHeaders("directory.rd");
  EXPECT_EQ(result_->placed, 14U);
  EXPECT_EQ(NameInRecord(*image_, 11), "MESA 1.2");
  EXPECT_EQ(RecordBytes(*image_, 11),
            (Bytes{0x00, 0x02, 0x22, 0x44, 0x00, 0x00, 'M',  'E',  'S',  'A',  ' ',
                   '1',  '.',  '2',  0x00, 0x16, 0x00, 0x1D, 0x0C, 0x00, 0x00, 0x00}));
  EXPECT_EQ(Comment(14), "Stadium");
}

TEST_F(Samples, HoldAValleyWithSemicolons) {
  request_.options.field_separator = ';';
  request_.columns = Columns({{kRxFrequency, 1},
                              {kOffsetColumn, 2},
                              {kTxFrequency, 3},
                              {kEncFrequency, 5},
                              {kNameColumn, 6},
                              {kCommentColumn, 7}});
  Import("valley.csv");
  EXPECT_EQ(result_->placed, 15U);
  EXPECT_EQ(RecordBytes(*image_, 3),
            (Bytes{0x05, 0x00, 0x14, 0x56, 0x12, 0x00, 'S',  'E',  'E',  'U',  'F',
                   'E',  'R',  ' ',  0x00, 0x06, 0x00, 0x1D, 0x02, 0x00, 0x00, 0x00}));
  EXPECT_EQ(RecordBytes(*image_, 9)[15], 0x76);
  EXPECT_EQ(Comment(7),
            "Windr\xE4"
            "der");
}

TEST_F(Samples, HoldMountainsWithEveryColumn) {
  ImportWithHeaders("mountains.txt", '\t');
  EXPECT_EQ(result_->placed, 7U);
  EXPECT_EQ(Comment(1), "North face hut \x96 wind powered");
  EXPECT_EQ(RecordBytes(*image_, 2)[17], 0x2E);  // plus, tone squelch
  EXPECT_EQ(FlagByte(*image_, 3), 0x07);
  EXPECT_EQ(RecordBytes(*image_, 4),
            (Bytes{0x00, 0x00, 0x14, 0x59, 0x00, 0x00, 'X',  'B',  'A',  'N',  'D',
                   ' ',  ' ',  ' ',  0x43, 0x52, 0x50, 0x0B, 0x0C, 0x00, 0x00, 0x00}));
  EXPECT_EQ(RecordBytes(*image_, 7)[2], 0x16);
  EXPECT_FALSE(session_.check_tones);
}

TEST_F(Samples, HoldSimplexChannelsWithLineFeedsAlone) {
  request_.options.text_separator = '\'';
  request_.columns = Columns({{kRxFrequency, 1}, {kNameColumn, 2}});
  Import("simplex.txt");
  EXPECT_EQ(result_->placed, 12U);
  EXPECT_EQ(NameInRecord(*image_, 7), "CALL 2M ");
  EXPECT_EQ(NameInRecord(*image_, 12), "CALL 70 ");
}

}  // namespace
}  // namespace qz7
