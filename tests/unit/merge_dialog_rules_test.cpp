#include "core/interchange/merge_dialog_rules.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/image/operating_state.h"
#include "tests/unit/interchange_fixture.h"
#include "tests/unit/merge_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace merge_fixture;
using interchange_fixture::FlagByte;
using interchange_fixture::MakeRadio;
using interchange_fixture::Program;
using interchange_fixture::RecordBytes;

// Three channels: 146.94 "Local RPT north", 120.0 "tower", 435.0 "rpt south".
SourceFile ThreeChannels() {
  SourceFile file = SiblingFile();
  file.Channel(1, kInUse, 14'694'000, 14'634'000);
  file.Comment(1, "Local RPT north");
  file.Channel(2, kInUse, 12'000'000, 12'000'000);
  file.Comment(2, "tower");
  file.Channel(3, kInUse, 43'500'000, 43'500'000);
  file.Comment(3, "rpt south");
  file.Channel(4, kInUse, 25'000'000, 25'000'000);
  return file;
}

class MergeDialog : public testing::Test {
 protected:
  void SetUp() override {
    working_copy_ = std::make_unique<CloneImage>(*image_);
    ASSERT_TRUE(Load(source_, *working_copy_, ThreeChannels().bytes));
  }
  MergeAnswer Accept(int start) {
    return AcceptMerge(*image_, *working_copy_, source_, options_, start);
  }
  void ExpectShown(const std::string& text, Icon icon) {
    ASSERT_EQ(test_seams.messages.size(), 1U);
    EXPECT_EQ(test_seams.messages[0].text, text);
    EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
    EXPECT_EQ(test_seams.messages[0].icon, icon);
    EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
    test_seams.messages.clear();
  }

  std::unique_ptr<CloneImage> image_ = MakeRadio();
  std::unique_ptr<CloneImage> working_copy_;
  MergeSource source_;
  MergeOptions options_;
};

constexpr const char* kIllegalStart = "Illegal Start Channel";
constexpr const char* kNoRoom =
    "Cannot fit selected memories.\nUse lower start channel, and/or select overwrite.";

TEST_F(MergeDialog, OpensWithItsCountsGroup1AndTheDefaultStart) {
  Program(*image_, 1, 10);
  options_.group = 2;
  options_.start = 99;
  options_.only_ham = true;
  const MergeCounts counts = OpenMergeDialog(*image_, source_, options_);
  EXPECT_EQ(counts.available, 3);
  EXPECT_EQ(counts.selected, 2);
  EXPECT_EQ(options_.group, 1);
  EXPECT_EQ(options_.start, 11);
}

TEST_F(MergeDialog, KeepsItsFiltersFromOneMergeToTheNext) {
  SetMergeKey(options_, "rpt");
  options_.use_key = options_.only_ham = options_.overwrite = true;
  OpenMergeDialog(*image_, source_, options_);
  EXPECT_EQ(options_.key, "rpt");
  EXPECT_TRUE(options_.use_key && options_.only_ham && options_.overwrite);
}

TEST_F(MergeDialog, StartsWithEveryFilterOff) {
  EXPECT_EQ(options_.key, "");
  EXPECT_FALSE(options_.use_key || options_.only_ham || options_.overwrite);
  EXPECT_EQ(OpenMergeDialog(*image_, source_, options_).selected, 3);
}

TEST_F(MergeDialog, RecountsForItsFilters) {
  EXPECT_EQ(SetOnlyHam(source_, options_, true), 2);
  EXPECT_EQ(SetOnlyHam(source_, options_, false), 3);
  SetMergeKey(options_, "south");
  EXPECT_EQ(SetUseKey(source_, options_, true), 1);
  EXPECT_EQ(SetUseKey(source_, options_, false), 3);
}

TEST_F(MergeDialog, RecountsWhileTheKeyIsTypedIfItIsUsed) {
  EXPECT_EQ(EditMergeKey(source_, options_, "r"), std::nullopt);
  EXPECT_EQ(options_.key, "r");
  EXPECT_EQ(SetUseKey(source_, options_, true), 3);
  EXPECT_EQ(EditMergeKey(source_, options_, "rp"), 2);
  EXPECT_EQ(EditMergeKey(source_, options_, "rpt s"), 1);
  EXPECT_EQ(EditMergeKey(source_, options_, "rpt sx"), 0);
  EXPECT_EQ(EditMergeKey(source_, options_, ""), 3);
}

TEST_F(MergeDialog, SetsTheStartAgainWithTheGroup) {
  Program(*image_, 1, 10);
  options_.start = 99;
  EXPECT_EQ(SetGroup2(*image_, source_, options_, true), 3);
  EXPECT_EQ(options_.group, 2);
  EXPECT_EQ(options_.start, 11);
  EXPECT_EQ(SetGroup2(*image_, source_, options_, false), 3);
  EXPECT_EQ(options_.group, 1);
}

TEST_F(MergeDialog, KeepsTheStartWithTheGroupWhileChannelsAreOverwritten) {
  options_.start = 99;
  options_.overwrite = true;
  SetGroup2(*image_, source_, options_, true);
  EXPECT_EQ(options_.start, 99);
}

TEST_F(MergeDialog, MergesFromTheStartOn) {
  EXPECT_EQ(Accept(50), MergeAnswer::kMerged);
  EXPECT_EQ(FlagByte(*image_, 49), 0x00);
  EXPECT_EQ(FlagByte(*image_, 50), 0x03);
  EXPECT_EQ(FlagByte(*image_, 52), 0x03);
  EXPECT_EQ(FlagByte(*image_, 53), 0x00);
  EXPECT_EQ(RecordBytes(*image_, 51)[2], 0x12);
  EXPECT_TRUE(ShownTexts().empty());
}

TEST_F(MergeDialog, RefusesAStartOutsideTheChannels) {
  const CloneImage before = *image_;
  for (const int start : {0, -1, 240, 241, 2'147'483'647}) {
    EXPECT_EQ(Accept(start), MergeAnswer::kIllegalStart) << start;
    ExpectShown(kIllegalStart, Icon::kStop);
  }
  EXPECT_EQ(*image_, before);
  EXPECT_EQ(Accept(1), MergeAnswer::kMerged);
}

TEST_F(MergeDialog, RefusesTheLastChannelButNotTheOneBefore) {
  SetMergeKey(options_, "tower");
  options_.use_key = true;
  EXPECT_EQ(Accept(240), MergeAnswer::kIllegalStart);
  ExpectShown(kIllegalStart, Icon::kStop);
  EXPECT_EQ(Accept(239), MergeAnswer::kMerged);
}

TEST_F(MergeDialog, EndsWhenNothingIsSelected) {
  const CloneImage before = *image_;
  SetMergeKey(options_, "nowhere");
  options_.use_key = true;
  EXPECT_EQ(Accept(50), MergeAnswer::kNothing);
  ExpectShown("No memories selected for merge", Icon::kInformation);
  EXPECT_EQ(*image_, before);
  EXPECT_EQ(Accept(0), MergeAnswer::kIllegalStart);
}

TEST_F(MergeDialog, RefusesARunThatIsTooShort) {
  Program(*image_, 52, 52);
  const CloneImage before = *image_;
  EXPECT_EQ(Accept(50), MergeAnswer::kNoRoom);
  ExpectShown(kNoRoom, Icon::kStop);
  EXPECT_EQ(*image_, before);
  EXPECT_EQ(Accept(49), MergeAnswer::kMerged);
}

TEST_F(MergeDialog, CountsThePmsChannelsAsRoom) {
  EXPECT_EQ(Accept(239), MergeAnswer::kNoRoom);
  EXPECT_EQ(Accept(238), MergeAnswer::kMerged);
  EXPECT_EQ(FlagByte(*image_, 240), 0x03);
}

TEST_F(MergeDialog, OverwritesUpToTheLastChannel) {
  Program(*image_, 1, 240);
  EXPECT_EQ(Accept(100), MergeAnswer::kNoRoom);
  options_.overwrite = true;
  EXPECT_EQ(Accept(239), MergeAnswer::kNoRoom);
  EXPECT_EQ(Accept(238), MergeAnswer::kMerged);
  EXPECT_EQ(RecordBytes(*image_, 240)[2], 0x43);
}

TEST_F(MergeDialog, RefreshesTheOperatingState) {
  image_ = MakeRadio();
  Program(*image_, 1, 1);
  options_.overwrite = true;
  CloneImage merged = *image_;
  options_.start = 1;
  MergeChannels(merged, *working_copy_, source_, options_);
  RefreshOperatingState(merged);
  EXPECT_EQ(Accept(1), MergeAnswer::kMerged);
  EXPECT_EQ(*image_, merged);
  EXPECT_EQ((*image_)[10'464], 0x14);
  EXPECT_EQ((*image_)[10'465], 0x69);
}

TEST_F(MergeDialog, StaysWithAnImageWithoutChannels) {
  image_ = MakeRadio(0);
  EXPECT_EQ(Accept(1), MergeAnswer::kIllegalStart);
}

class MergeIntoDocument : public testing::Test {
 protected:
  std::optional<int> Merge(const std::string& path, std::optional<int> start) {
    const auto working_copy = std::make_unique<CloneImage>(*image_);
    MergeSource source;
    return ReadMergeSource(source, *working_copy, path)
               ? MergeIntoImage(*image_, *working_copy, source, options_, start)
               : std::nullopt;
  }

  TempFolder folder_;
  std::unique_ptr<CloneImage> image_ = MakeRadio();
  MergeOptions options_;
};

TEST_F(MergeIntoDocument, LoadsAndMergesFromTheDefaultStart) {
  const std::string path = folder_.File("other.rdf");
  PutFile(path, ThreeChannels().bytes);
  Program(*image_, 1, 4);
  EXPECT_EQ(Merge(path, std::nullopt), 3);
  EXPECT_EQ(FlagByte(*image_, 5), 0x03);
  EXPECT_EQ(FlagByte(*image_, 8), 0x00);
}

TEST_F(MergeIntoDocument, MergesFromANamedStart) {
  const std::string path = folder_.File("other.rdf");
  PutFile(path, ThreeChannels().bytes);
  options_.only_ham = true;
  EXPECT_EQ(Merge(path, 100), 2);
  EXPECT_EQ(FlagByte(*image_, 100), 0x03);
  EXPECT_EQ(FlagByte(*image_, 102), 0x00);
}

TEST_F(MergeIntoDocument, BuildsOnTheDocumentsChannel1) {
  const std::string path = folder_.File("other.rdf");
  PutFile(path, ThreeChannels().bytes);
  image_fixture::PutChannel(*image_, 1, image_fixture::Bytes(22, 0xA5));
  EXPECT_EQ(Merge(path, 100), 3);
  EXPECT_EQ(RecordBytes(*image_, 100)[19], 0xA5);
}

TEST_F(MergeIntoDocument, LeavesTheDocumentAloneWhenItIsRefused) {
  const CloneImage before = *image_;
  EXPECT_EQ(Merge(folder_.File("absent.rdf"), 100), std::nullopt);
  const std::string path = folder_.File("other.rdf");
  PutFile(path, ThreeChannels().bytes);
  EXPECT_EQ(Merge(path, 240), std::nullopt);
  EXPECT_EQ(*image_, before);
  EXPECT_EQ(test_seams.messages.size(), 2U);
}

}  // namespace
}  // namespace qz7
