#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <vector>

#include "core/link/clone_write.h"
#include "tests/unit/clone_write_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

TEST(MergeTemplate, PutsTheTemplatesIdentityIntoTheBlock) {
  Bytes block(8122, 0xEE);
  Bytes from(8122, 0x44);
  std::iota(from.begin(), from.begin() + 16, std::uint8_t{0x10});
  MergeTemplate(block, from);
  const Bytes start(block.begin(), block.begin() + 16);
  EXPECT_EQ(start, (Bytes{0x10, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18, 0x19, 0x16, 0x17,
                          0x1C, 0x1D, 0xEE, 0xEE}));
  EXPECT_EQ(std::count(block.begin() + 14, block.end(), 0xEE), 8122 - 14);
}

TEST(TemplateDisplayName, IsWhatFollowsTheLastBackslash) {
  EXPECT_EQ(TemplateDisplayName("C:\\Radio\\my.tpl"), "my.tpl");
  EXPECT_EQ(TemplateDisplayName("C:\\Radio\\"), "");
  EXPECT_EQ(TemplateDisplayName("C:\\a template with a name of its own length.tpl"),
            "a template with a name of its own length.tpl");
}

TEST(TemplateDisplayName, IsTheWholePathOrItsLast30CharactersWithoutABackslash) {
  EXPECT_EQ(TemplateDisplayName("my.tpl"), "my.tpl");
  EXPECT_EQ(TemplateDisplayName("abcdefghijklmnopqrstuvwxyz.tpl"),
            "abcdefghijklmnopqrstuvwxyz.tpl");
  EXPECT_EQ(TemplateDisplayName("0abcdefghijklmnopqrstuvwxyz.tpl"),
            "abcdefghijklmnopqrstuvwxyz.tpl");
  EXPECT_EQ(TemplateDisplayName(""), "");
}

class LoadedTemplate : public OpenedWrite {
 protected:
  TemplateOutcome Load(const std::string& path) { return LoadTemplateFor(template_, path); }

  CloneImage template_{};
};

TEST_F(LoadedTemplate, IsTheFileWhenItIsUsable) {
  for (const std::uint8_t type : {std::uint8_t{0}, std::uint8_t{2}}) {
    WriteTemplate(type);
    EXPECT_EQ(Load(template_path_), TemplateOutcome::kUsable);
    EXPECT_EQ(template_[3068], type);
    EXPECT_EQ(template_[3066], 0x61);
  }
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(LoadedTemplate, LeavesAnotherChoiceWhenItCannotBeRead) {
  const std::string missing = folder_.File("missing.tpl");
  EXPECT_EQ(Load(missing), TemplateOutcome::kStay);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Cannot open file:\n" + missing});
}

TEST_F(LoadedTemplate, GivesUpOnTheJapaneseVersion) {
  WriteTemplate(1);
  EXPECT_EQ(Load(template_path_), TemplateOutcome::kGiveUp);
  ASSERT_EQ(ShownTexts(),
            std::vector<std::string>{"Template file is for a Japanese Version of the QZ-7 Radio."
                                     "\n\nThis software does not work with that version of the "
                                     "radio."});
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
}

// A VFO record of which every byte tells where it came from.
constexpr std::array<std::uint8_t, 22> kVfo = {0xD5, 0x05, 0x14, 0x50, 0x12, 0xFE, 'A',  'B',
                                               'C',  'D',  'E',  'F',  'G',  'H',  0x00, 0x06,
                                               0x00, 0x3A, 0x21, 0x43, 0x77, 0x88};
// What the radio's operating channel is then, from image offset 10456 on; the half-kilohertz marks
// (here 0x99) stay.
constexpr std::array<std::uint8_t, 26> kMirror = {
    0xD5, 0x02, 0x05, 0x02, 0x03, 0x21, 0x43, 0x02, 0x14, 0x50, 0x12, 0x99, 0x00,
    0x06, 0x00, 0x99, 'A',  'B',  'C',  'D',  'E',  'F',  'G',  'H',  0x77, 0x88};

class MirroredChannel : public OpenedWrite {
 protected:
  // Opens a write on a document whose VFO record at `record` is the one above.
  void OpenWithVfo(std::size_t record, std::uint8_t bank, std::uint8_t slot) {
    std::copy(kVfo.begin(), kVfo.end(),
              working_copy_.begin() + static_cast<std::ptrdiff_t>(record));
    std::fill(working_copy_.begin() + 10'456, working_copy_.begin() + 10'482, std::uint8_t{0x99});
    working_copy_[10'454] = bank;
    working_copy_[10'455] = slot;
    before_ = working_copy_;
    Open();
  }

  void ExpectMirrored() {
    CloneImage expected = before_;
    std::copy(kMirror.begin(), kMirror.end(), expected.begin() + 10'456);
    EXPECT_EQ(FirstDifference(working_copy_, expected), -1);
  }

  CloneImage before_{};
};

TEST_F(MirroredChannel, FollowsASlotOfTheFirstBank) {
  OpenWithVfo(9178 + 3 * 22, 0, 3);
  ExpectMirrored();
}

TEST_F(MirroredChannel, FollowsTheFirstSlotOfTheFirstBank) {
  OpenWithVfo(9178, 0, 0);
  ExpectMirrored();
}

TEST_F(MirroredChannel, FollowsASlotOfTheSecondBank) {
  OpenWithVfo(9398 + 9 * 22, 1, 9);
  ExpectMirrored();
}

TEST_F(MirroredChannel, StaysForAnyOtherBank) {
  for (const std::uint8_t bank : {std::uint8_t{2}, std::uint8_t{255}}) {
    OpenWithVfo(9178, bank, 0);
    EXPECT_EQ(FirstDifference(working_copy_, before_), -1);
  }
}

TEST_F(MirroredChannel, IsSentWithTheBlock) {
  OpenWithVfo(9398 + 22, 1, 1);
  Start();
  Tick();
  ArriveAndTick({0x06});
  ArriveAndTick({0x06});
  ASSERT_EQ(line_.sent.size(), 8123U);
  EXPECT_TRUE(std::equal(kMirror.begin(), kMirror.end(), line_.sent.begin() + 10'456 - 3060));
}

}  // namespace
}  // namespace qz7
