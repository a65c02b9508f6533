#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/interchange/merge.h"
#include "tests/unit/merge_fixture.h"

namespace qz7 {
namespace {

using namespace merge_fixture;

class MergeFilter : public testing::Test {
 protected:
  void Load(const SourceFile& file) {
    ASSERT_TRUE(merge_fixture::Load(source_, *working_copy_, file.bytes));
  }
  // Whether a channel on this frequency, in 10 Hz, is taken.
  bool Takes(std::uint32_t receive) {
    SourceFile file = SiblingFile();
    file.Channel(1, kInUse, receive, receive);
    Load(file);
    return IsSelectedForMerge(source_, options_, 1);
  }
  // Whether a channel with this comment is taken for this key.
  bool Matches(const std::string& comment, const std::string& key) {
    SourceFile file = SiblingFile();
    file.comment_size = 120;
    file.PutGeometry(2);
    file.Channel(1, kInUse, 14'694'000, 14'634'000);
    file.Comment(1, comment);
    Load(file);
    options_.use_key = true;
    SetMergeKey(options_, key);
    return IsSelectedForMerge(source_, options_, 1);
  }

  std::unique_ptr<CloneImage> working_copy_ = std::make_unique<CloneImage>();
  MergeSource source_;
  MergeOptions options_;
};

TEST_F(MergeFilter, TakesTheBandsFromMwToAir) {
  for (const std::uint32_t receive : {50'000U, 700'000U, 9'000'000U, 20'000'000U, 5'000'000U,
                                      14'500'000U, 43'500'000U, 12'000'000U}) {
    EXPECT_TRUE(Takes(receive)) << receive;
  }
  for (const std::uint32_t receive :
       {0U, 49'990U, 2'000'000U, 25'000'000U, 41'999'990U, 80'000'000U, 99'900'010U, 0xFFFFFFFFU}) {
    EXPECT_FALSE(Takes(receive)) << receive;
  }
}

TEST_F(MergeFilter, TakesNoChannelThatIsNotInUse) {
  SourceFile file = SiblingFile();
  file.Channel(1, 0xFE, 14'694'000, 14'634'000);
  Load(file);
  EXPECT_FALSE(IsAvailable(source_, 1));
  EXPECT_FALSE(IsAvailable(source_, 0));
  EXPECT_FALSE(IsAvailable(source_, 21));
}

TEST_F(MergeFilter, TakesOnlyHamFrequenciesWithBothEnds) {
  options_.only_ham = true;
  for (const std::uint32_t receive : {14'400'000U, 14'800'000U, 43'000'000U, 45'000'000U}) {
    EXPECT_TRUE(Takes(receive)) << receive;
  }
  for (const std::uint32_t receive :
       {14'399'999U, 14'800'001U, 14'800'500U, 42'999'999U, 45'000'001U, 5'000'000U}) {
    EXPECT_FALSE(Takes(receive)) << receive;
  }
}

TEST_F(MergeFilter, TakesOtherFrequenciesWithoutThatFilter) {
  EXPECT_TRUE(Takes(14'800'500));
  EXPECT_TRUE(Takes(42'999'999));
}

TEST_F(MergeFilter, FindsTheKeyInEitherCase) {
  EXPECT_TRUE(Matches("Local RPT north", "rpt"));
  EXPECT_TRUE(Matches("local rpt north", "rpt"));
  EXPECT_TRUE(Matches("local rpt north", "RPT N"));
  EXPECT_FALSE(Matches("local rp north", "rpt"));
  EXPECT_FALSE(Matches("", "rpt"));
}

TEST_F(MergeFilter, SearchesTheFirst80CharactersOfAComment) {
  EXPECT_TRUE(Matches(std::string(77, '.') + "rpt", "rpt"));
  EXPECT_FALSE(Matches(std::string(78, '.') + "rpt", "rpt"));
}

TEST_F(MergeFilter, SearchesUpToTheEndOfTheComment) {
  EXPECT_FALSE(Matches(std::string("local\0rpt", 9), "rpt"));
}

TEST_F(MergeFilter, TakesEveryChannelForAnEmptyKey) { EXPECT_TRUE(Matches("anything", "")); }

TEST_F(MergeFilter, LooksForTheKeyOnlyWhileItIsUsed) {
  SetMergeKey(options_, "rpt");
  EXPECT_TRUE(Takes(14'694'000));
  options_.use_key = true;
  EXPECT_FALSE(Takes(14'694'000));
}

TEST_F(MergeFilter, FindsNoKeyInACommentThatIsNotThere) {
  SourceFile file = SiblingFile();
  file.comments = 1'990;
  file.PutGeometry(2);
  file.Channel(1, kInUse, 14'694'000, 14'634'000);
  Load(file);
  SetMergeKey(options_, "x");
  options_.use_key = true;
  EXPECT_FALSE(IsSelectedForMerge(source_, options_, 1));
}

TEST_F(MergeFilter, TakesAChannelWithoutACommentForAnEmptyKey) {
  SourceFile file = SiblingFile();
  file.comments = 1'990;
  file.PutGeometry(2);
  file.Channel(1, kInUse, 14'694'000, 14'634'000);
  Load(file);
  SetMergeKey(options_, "");
  options_.use_key = true;
  EXPECT_TRUE(IsSelectedForMerge(source_, options_, 1));
}

TEST_F(MergeFilter, CutsTheKeyTo30Characters) {
  SetMergeKey(options_, "abcdefghijabcdefghijabcdefghijk");
  EXPECT_EQ(options_.key, "abcdefghijabcdefghijabcdefghij");
  EXPECT_EQ(options_.upper_key, "ABCDEFGHIJABCDEFGHIJABCDEFGHIJ");
}

TEST_F(MergeFilter, CountsAvailableAndSelectedChannels) {
  SourceFile file = SiblingFile();
  file.Channel(1, kInUse, 14'694'000, 14'634'000);
  file.Channel(3, kInUse, 12'000'000, 12'000'000);
  file.Channel(19, kInUse, 25'000'000, 25'000'000);
  file.Channel(20, kInUse, 43'500'000, 43'500'000);
  Load(file);
  options_.only_ham = true;
  EXPECT_EQ(CountAvailable(source_), 3);
  EXPECT_EQ(CountSelected(source_, options_), 2);
}

}  // namespace
}  // namespace qz7
