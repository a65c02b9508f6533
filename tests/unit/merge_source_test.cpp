#include "core/interchange/merge_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/unit/failing_new.h"
#include "tests/unit/merge_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace merge_fixture;

class Source : public testing::Test {
 protected:
  bool Load(const Bytes& bytes) { return merge_fixture::Load(source_, *working_copy_, bytes); }
  // Whether a file of 21,282 bytes whose header states this size loads.
  bool LoadWithSize(std::uint64_t size) {
    SourceFile file = OwnFile();
    file.Put(12, size, 4);
    return Load(file.bytes);
  }
  void ExpectRefused(const std::string& text) {
    EXPECT_FALSE(source_.IsLoaded());
    EXPECT_EQ(source_.size, 0U);
    ASSERT_EQ(test_seams.messages.size(), 1U);
    EXPECT_EQ(test_seams.messages[0].text, text);
    EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
    EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
    test_seams.messages.clear();
  }

  MergeSource source_;
  std::unique_ptr<CloneImage> working_copy_ = std::make_unique<CloneImage>();
};

TEST_F(Source, IsLoadedWhole) {
  SourceFile file = SiblingFile();
  file.bytes[1'999] = 0x5A;
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_EQ(source_.size, 2'000U);
  EXPECT_EQ(FirstDifference(source_.View(), file.bytes), -1);
  EXPECT_EQ(SourceChannelCount(source_), 20);
  EXPECT_EQ(SourceRadioType(source_), "Tamro QZ-2H");
  EXPECT_TRUE(ShownTexts().empty());
}

TEST_F(Source, OverwritesTheHeaderOfTheWorkingCopyAlone) {
  working_copy_->fill(0xEE);
  ASSERT_TRUE(Load(SiblingFile().bytes));
  const Bytes file = SiblingFile().bytes;
  EXPECT_TRUE(std::equal(file.begin(), file.begin() + 180, working_copy_->begin()));
  EXPECT_TRUE(std::all_of(working_copy_->begin() + 180, working_copy_->end(),
                          [](std::uint8_t byte) { return byte == 0xEE; }));
}

TEST_F(Source, OfAFileThatIsNotThereIsRefused) {
  const TempFolder folder;
  const std::string path = folder.File("absent.rdf");
  EXPECT_FALSE(ReadMergeSource(source_, *working_copy_, path));
  ExpectRefused("Cannot open file:\n" + path);
}

TEST_F(Source, IsReadFromAFile) {
  const TempFolder folder;
  const std::string path = folder.File("other.rdf");
  PutFile(path, SiblingFile().bytes);
  EXPECT_TRUE(ReadMergeSource(source_, *working_copy_, path));
  EXPECT_EQ(source_.size, 2'000U);
}

TEST_F(Source, WithoutAWholeHeaderIsRefused) {
  Bytes bytes = OwnFile().bytes;
  bytes.resize(179);
  EXPECT_FALSE(Load(bytes));
  ExpectRefused("Not a radio data file:\nother.rdf");
  EXPECT_FALSE(Load({}));
  ExpectRefused("Not a radio data file:\nother.rdf");
}

TEST_F(Source, WithAnotherMagicIsRefused) {
  for (std::size_t i = 0; i < 4; ++i) {
    Bytes bytes = OwnFile().bytes;
    bytes[i] ^= 0x20;
    EXPECT_FALSE(Load(bytes));
    ExpectRefused("Not a radio data file:\nother.rdf");
  }
}

TEST_F(Source, CutShortIsRefused) {
  Bytes bytes = OwnFile().bytes;
  bytes.pop_back();
  EXPECT_FALSE(Load(bytes));
  ExpectRefused("Radio data file has invalid format");
}

TEST_F(Source, MayBeFollowedByMore) {
  Bytes bytes = OwnFile().bytes;
  bytes.push_back(1);
  EXPECT_TRUE(Load(bytes));
  EXPECT_EQ(source_.size, 21'282U);
}

TEST_F(Source, HasAtLeastTheSizeOfItsHeader) {
  EXPECT_TRUE(LoadWithSize(180));
  EXPECT_EQ(source_.size, 180U);
  EXPECT_FALSE(LoadWithSize(179));
  ExpectRefused("Out of Memory");
  EXPECT_FALSE(LoadWithSize(0));
  ExpectRefused("Out of Memory");
}

TEST_F(Source, HasAtMost16Mebibytes) {
  EXPECT_FALSE(LoadWithSize(16U << 20));
  ExpectRefused("Radio data file has invalid format");
  EXPECT_FALSE(LoadWithSize((16U << 20) + 1));
  ExpectRefused("Out of Memory");
  EXPECT_FALSE(LoadWithSize(0xFFFFFFFF));
  ExpectRefused("Out of Memory");
}

TEST_F(Source, WithoutMemoryIsRefused) {
  nothrow_new_fails = true;
  const bool loaded = Load(OwnFile().bytes);
  nothrow_new_fails = false;
  EXPECT_FALSE(loaded);
  ExpectRefused("Out of Memory");
}

TEST_F(Source, IsEmptyAgainAfterAFailure) {
  ASSERT_TRUE(Load(OwnFile().bytes));
  EXPECT_FALSE(Load({}));
  EXPECT_FALSE(source_.IsLoaded());
}

TEST_F(Source, IsOfThisModelByFourFields) {
  ASSERT_TRUE(Load(OwnFile().bytes));
  EXPECT_TRUE(IsSameModel(source_));
  ASSERT_TRUE(Load(SiblingFile().bytes));
  EXPECT_FALSE(IsSameModel(source_));
}

TEST_F(Source, IsOfAnotherModelByAnyOfTheFour) {
  for (const std::size_t offset : {4U, 7U, 8U, 76U}) {
    Bytes bytes = OwnFile().bytes;
    bytes[offset] ^= 0x01;
    ASSERT_TRUE(Load(bytes));
    EXPECT_FALSE(IsSameModel(source_)) << offset;
  }
  ASSERT_TRUE(LoadWithSize(21'281));
  EXPECT_FALSE(IsSameModel(source_));
}

TEST_F(Source, OfAnOlderFormatIsOfAnotherModel) {
  SourceFile file = OwnFile();
  file.Put(8, 1, 4);
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_FALSE(IsSameModel(source_));
}

TEST_F(Source, ThatIsLargerIsOfAnotherModel) {
  SourceFile file = OwnFile();
  file.bytes.push_back(0);
  file.Put(12, 21'283, 4);
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_FALSE(IsSameModel(source_));
}

TEST_F(Source, NamesItsRadioInAtMost40Characters) {
  Bytes bytes = OwnFile().bytes;
  std::fill_n(bytes.begin() + 16, 44, 'x');
  ASSERT_TRUE(Load(bytes));
  EXPECT_EQ(SourceRadioType(source_), std::string(40, 'x'));
}

TEST_F(Source, FindsItsEntriesBySizeAndPlace) {
  SourceFile file = SiblingFile();
  file.Channel(3, kInUse, 14'694'000, 14'634'000, 885);
  file.Name(3, "RPT3");
  file.Comment(3, "North");
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_EQ(SourceSummary(source_, 3)->receive_10hz, 14'694'000U);
  EXPECT_FALSE(SourceSummary(source_, 2)->in_use);
  EXPECT_EQ(SourceName(source_, 3)->size(), 8U);
  EXPECT_EQ(SourceName(source_, 3)->front(), 'R');
  EXPECT_EQ(SourceComment(source_, 3)->size(), 40U);
  EXPECT_EQ(SourceComment(source_, 3)->front(), 'N');
  EXPECT_EQ(SourceRecord(source_, 3), nullptr);
}

TEST_F(Source, HasNoEntryOutsideItsCount) {
  ASSERT_TRUE(Load(SiblingFile().bytes));
  for (const int s : {0, -1, 21, 65'535}) {
    EXPECT_FALSE(SourceSummary(source_, s).has_value());
    EXPECT_FALSE(SourceName(source_, s).has_value());
    EXPECT_FALSE(SourceComment(source_, s).has_value());
  }
  EXPECT_TRUE(SourceSummary(source_, 20).has_value());
}

TEST_F(Source, HasTheRecordsOfItsOwnModelUpToItsCount) {
  SourceFile file = OwnFile();
  file.Record(2, {0xAB});
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_EQ(*SourceRecord(source_, 2), 0xAB);
  EXPECT_EQ(SourceRecord(source_, 240) - source_.bytes.get(), 8'936);
  EXPECT_EQ(SourceRecord(source_, 0), nullptr);
  EXPECT_EQ(SourceRecord(source_, 241), nullptr);
  file.PutGeometry(65'535);
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_NE(SourceRecord(source_, 240), nullptr);
  EXPECT_EQ(SourceRecord(source_, 241), nullptr);
  file.PutGeometry(5);
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_NE(SourceRecord(source_, 5), nullptr);
  EXPECT_EQ(SourceRecord(source_, 6), nullptr);
}

TEST_F(Source, HasAnEntryThatEndsWithTheFileAndNoneThatLiesBeyond) {
  SourceFile file = SiblingFile();
  file.summary = 2'000 - 16;
  file.names = 2'000 - 8;
  file.comments = 2'000 - 40;
  file.PutGeometry(20);
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_TRUE(SourceSummary(source_, 1).has_value());
  EXPECT_TRUE(SourceName(source_, 1).has_value());
  EXPECT_TRUE(SourceComment(source_, 1).has_value());
  EXPECT_FALSE(SourceSummary(source_, 2).has_value());
  EXPECT_FALSE(SourceName(source_, 2).has_value());
  EXPECT_FALSE(SourceComment(source_, 2).has_value());
  ++file.summary;
  ++file.names;
  ++file.comments;
  file.PutGeometry(20);
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_FALSE(SourceSummary(source_, 1).has_value());
  EXPECT_FALSE(SourceName(source_, 1).has_value());
  EXPECT_FALSE(SourceComment(source_, 1).has_value());
}

TEST_F(Source, NeedsTwelveBytesForASummaryHoweverSmallItsEntriesAre) {
  SourceFile file = SiblingFile();
  file.summary_size = 4;
  file.summary = 2'000 - 12;
  file.PutGeometry(20);
  ASSERT_TRUE(Load(file.bytes));
  EXPECT_TRUE(SourceSummary(source_, 1).has_value());
  EXPECT_FALSE(SourceSummary(source_, 2).has_value());
}

TEST_F(Source, HasNoSummaryAboveTheSummaryCountAndMissesNone) {
  SourceFile file = SiblingFile();
  for (const std::size_t size : {0U, 1U, 11U, 12U, 13U, 16U, 2'000U}) {
    for (const std::size_t place : {180U, 1'964U, 1'988U, 1'989U, 2'000U, 2'001U}) {
      file.summary_size = size;
      file.summary = place;
      file.PutGeometry(3'000);
      ASSERT_TRUE(Load(file.bytes));
      for (int s = SourceSummaryCount(source_) + 1; s <= 3'000; ++s) {
        ASSERT_FALSE(SourceSummary(source_, s).has_value()) << size << " at " << place << ": " << s;
      }
      EXPECT_EQ(SourceSummaryCount(source_) > 0 && SourceSummary(source_, 1).has_value(),
                place + std::max<std::size_t>(size, 12) <= 2'000);
    }
  }
}

TEST_F(Source, BelievesNoPlaceThatWrapsAround) {
  SourceFile file = SiblingFile();
  file.summary = file.names = file.comments = 0xFFFFFFF0;
  file.PutGeometry(65'535);
  ASSERT_TRUE(Load(file.bytes));
  for (const int s : {1, 2, 3, 65'535}) {
    EXPECT_FALSE(SourceSummary(source_, s).has_value());
    EXPECT_FALSE(SourceName(source_, s).has_value());
    EXPECT_FALSE(SourceComment(source_, s).has_value());
  }
}

TEST_F(Source, IsAskedForWithItsOwnBox) {
  const FileBox box = MergeFileBox("C:\\radio");
  EXPECT_STREQ(box.title, "Radio File for Merge");
  ASSERT_EQ(box.filters.size(), 2U);
  EXPECT_STREQ(box.filters[0].text, "Radio Files (*.rdf)");
  EXPECT_STREQ(box.filters[0].pattern, "*.rdf");
  EXPECT_STREQ(box.filters[1].text, "All files (*.*)");
  EXPECT_STREQ(box.filters[1].pattern, "*.*");
  EXPECT_STREQ(box.default_extension, "rdf");
  EXPECT_EQ(box.folder, "C:\\radio");
}

}  // namespace
}  // namespace qz7
