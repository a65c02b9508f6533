#include "core/editors/list_find.h"

#include <gtest/gtest.h>

#include "core/editors/row_tip.h"
#include "tests/unit/editor_fixture.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

// Names in some channels, on 145.5 MHz; all other channels are empty.
std::unique_ptr<CloneImage> NamedImage(const std::vector<std::pair<int, std::string>>& names) {
  auto image = MakeWideImage();
  for (const auto& [n, name] : names) {
    PutChannel(*image, n, Bytes(22));
    PutBytes(*image, RecordPlace(n) + 2, ::qz7::editor_fixture::Kilohertz(145'500));
    SetChannelName(*image, n, name);
  }
  return image;
}

// Where each character leads that is typed without a pause; -1 for nowhere.
std::vector<int> Typed(const CloneImage& image, const std::string& text, int row) {
  TypedSearch search;
  std::vector<int> rows;
  for (const char c : text) {
    rows.push_back(TypeCharacter(search, image, c, 5'000, row).value_or(-1));
    row = rows.back() >= 0 ? rows.back() : row;
  }
  return rows;
}

TEST(TypingInTheList, DigitsGoToTheChannel) {
  auto image = MakeWideImage();
  EXPECT_EQ(Typed(*image, "125", 70), (std::vector<int>{0, 11, 124}));
  EXPECT_EQ(Typed(*image, "241", 70), (std::vector<int>{1, 23, -1}));
  EXPECT_EQ(Typed(*image, "0", 70), std::vector<int>{-1});
  EXPECT_EQ(Typed(*image, "999999999999", 70).back(), -1);
}

TEST(TypingInTheList, LettersGoToTheNextNameThatBeginsSo) {
  const auto image = NamedImage({{3, "Berlin"}, {9, "BREMEN"}, {20, "bonn"}, {30, "Ulm B"}});
  EXPECT_EQ(Typed(*image, "b", 0), std::vector<int>{2});
  EXPECT_EQ(Typed(*image, "B", 2), std::vector<int>{8});
  EXPECT_EQ(Typed(*image, "b", 19), std::vector<int>{2});
  EXPECT_EQ(Typed(*image, "br", 19), (std::vector<int>{2, 8}));
  EXPECT_EQ(Typed(*image, "bo", 2), (std::vector<int>{8, 19}));
  EXPECT_EQ(Typed(*image, "ulm b", 2), (std::vector<int>{29, 29, 29, 29, 29}));
  EXPECT_EQ(Typed(*image, "x", 2), std::vector<int>{-1});
}

TEST(TypingInTheList, TheSameLetterAgainGoesToTheNextSuchName) {
  const auto image = NamedImage({{3, "Berlin"}, {9, "Bremen"}, {20, "Rom"}});
  EXPECT_EQ(Typed(*image, "bbb", 0), (std::vector<int>{2, 8, 2}));
  const auto double_letter = NamedImage({{3, "Berlin"}, {9, "Bremen"}, {20, "Bb"}});
  EXPECT_EQ(Typed(*double_letter, "bb", 0), (std::vector<int>{2, 19}));
}

TEST(TypingInTheList, FindsThePmsChannelsByTheirLabels) {
  const auto image = NamedImage({{3, "London"}});
  EXPECT_EQ(Typed(*image, "l1", 70), (std::vector<int>{2, 220}));
  EXPECT_EQ(Typed(*image, "u10", 70), (std::vector<int>{-1, 221, 239}));
}

TEST(TypingInTheList, APauseStartsAnew) {
  const auto image = NamedImage({{3, "Berlin"}, {20, "Rom"}});
  TypedSearch search;
  EXPECT_EQ(TypeCharacter(search, *image, 'b', 5'000, 0), 2);
  EXPECT_EQ(TypeCharacter(search, *image, 'r', 6'001, 2), 19);
  EXPECT_EQ(TypeCharacter(search, *image, '1', 7'002, 2), 0);
  EXPECT_EQ(TypeCharacter(search, *image, '2', 8'002, 2), 11);
}

TEST(TypingInTheList, BlanksInFrontAndControlCharactersFindNothing) {
  const auto image = NamedImage({{3, "Berlin"}});
  EXPECT_EQ(Typed(*image, " b", 0), (std::vector<int>{-1, 2}));
  EXPECT_EQ(Typed(*image, "\x03\r\x7F", 0), (std::vector<int>{-1, -1, -1}));
}

TEST(TypingInTheList, AnEmptyChannelsOldNameIsNotFound) {
  auto image = NamedImage({{3, "Berlin"}});
  (*image)[FlagPlace(3)] = 0;
  EXPECT_EQ(Typed(*image, "b", 0), std::vector<int>{-1});
}

TEST(TypingInTheList, FindsNothingInAListWithoutChannels) {
  auto image = MakeImage(0);
  EXPECT_EQ(Typed(*image, "1b", 0), (std::vector<int>{-1, -1}));
  EXPECT_EQ(FindNextRow(*image, "b", 0, test_region), std::nullopt);
}

TEST(Finding, LooksIntoNamesCommentsAndBothFrequencies) {
  auto image = NamedImage({{3, "Berlin"}, {9, "Bremen"}, {20, "Bonn"}});
  PutBytes(*image, 13602 + 8 * 32, {'T', 'o', 'w', 'e', 'r', 0});
  PutBytes(*image, RecordPlace(20) + 14, {0x43, 0x90, 0x00});
  (*image)[RecordPlace(20) + 17] = 3;  // an odd split
  EXPECT_EQ(FindNextRow(*image, "RLI", 50, test_region), 2);
  EXPECT_EQ(FindNextRow(*image, "tower", 50, test_region), 8);
  EXPECT_EQ(FindNextRow(*image, "439", 50, test_region), 19);
  EXPECT_EQ(FindNextRow(*image, "145.50", 2, test_region), 8);
  EXPECT_EQ(FindNextRow(*image, "145,50", 2, test_region), 8);
  EXPECT_EQ(FindNextRow(*image, "439,0", 50, test_region), 19);
  EXPECT_EQ(FindNextRow(*image, "Paris", 50, test_region), std::nullopt);
  EXPECT_EQ(FindNextRow(*image, "", 50, test_region), std::nullopt);
}

TEST(Finding, GoesOnBehindTheRowAndComesRoundToIt) {
  auto image = NamedImage({{3, "Berlin"}, {9, "Bremen"}, {240, "Bonn"}});
  EXPECT_EQ(FindNextRow(*image, "b", 2, test_region), 8);
  EXPECT_EQ(FindNextRow(*image, "b", 8, test_region), 239);
  EXPECT_EQ(FindNextRow(*image, "b", 239, test_region), 2);
  EXPECT_EQ(FindNextRow(*image, "bre", 8, test_region), 8);
}

TEST(RowTip, TellsWhatTheRowHasNoRoomFor) {
  auto image = NamedImage({{3, "Berlin"}});
  EXPECT_EQ(RowTip(*image, 3, test_region), "Transmit 145.5000 MHz\nNo tone");
  PutBytes(*image, RecordPlace(3) + 14, {0x00, 0x06, 0x00});
  (*image)[RecordPlace(3) + 17] = 0x11;  // minus, tone encode
  (*image)[RecordPlace(3) + 18] = 8;
  PutBytes(*image, 13602 + 2 * 32, {'T', 'V', 0});
  EXPECT_EQ(RowTip(*image, 3, test_region), "Transmit 144.9000 MHz\nTone Encode 88.5 Hz\nTV");
  (*image)[RecordPlace(3) + 17] = 0x31;
  (*image)[RecordPlace(3) + 19] = 103;
  EXPECT_EQ(RowTip(*image, 3, test_region), "Transmit 144.9000 MHz\nDCS 754\nTV");
}

TEST(RowTip, LeavesOutACodeWithoutAMeaning) {
  auto image = NamedImage({{3, "Berlin"}});
  (*image)[RecordPlace(3) + 17] = 0x70;
  EXPECT_EQ(RowTip(*image, 3, test_region), "Transmit 145.5000 MHz");
  (*image)[RecordPlace(3) + 17] = 0x20;
  (*image)[RecordPlace(3) + 18] = 39;
  EXPECT_EQ(RowTip(*image, 3, test_region), "Transmit 145.5000 MHz\nTone Squelch");
}

TEST(RowTip, IsEmptyForAChannelThatIsNotProgrammed) {
  auto image = NamedImage({{3, "Berlin"}});
  for (const int n : {-1, 0, 4, 241}) {
    EXPECT_EQ(RowTip(*image, n, test_region), "") << n;
  }
}

}  // namespace
}  // namespace qz7
