#include "core/files/defaults_record.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/unit/document_bytes.h"
#include "tests/unit/image_fixture.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

// Record offset, size and image offset of every mirrored piece.
struct Piece {
  std::size_t record;
  std::size_t size;
  std::size_t image;
};
constexpr Piece kPieces[] = {
    {0, 576, 9618},   {576, 1, 10'194},   {577, 1, 10'195}, {578, 2, 10'196},  {580, 2, 10'198},
    {582, 8, 10'200}, {590, 16, 10'208},  {606, 1, 10'224}, {607, 15, 10'225}, {622, 4, 10'240},
    {626, 8, 10'244}, {634, 144, 10'252}, {778, 1, 10'396}, {779, 10, 10'397}, {789, 4, 10'490},
    {793, 1, 10'497}, {794, 1, 10'502},   {795, 1, 10'503}, {796, 3, 10'504}};

TEST(DefaultsRecord, MirrorsEveryPieceOfTheImage) {
  const auto image = image_fixture::MakePatternImage();
  DefaultsRecord record{};
  FillDefaultsRecord(record, *image);
  std::size_t covered = 0;
  for (const Piece& piece : kPieces) {
    for (std::size_t i = 0; i < piece.size; ++i) {
      EXPECT_EQ(record[piece.record + i], (*image)[piece.image + i]) << piece.record + i;
      EXPECT_EQ(DefaultsPlace(piece.image + i), piece.record + i);
    }
    covered += piece.size;
  }
  EXPECT_EQ(covered, 799U);
}

TEST(DefaultsRecord, HasNoPlaceForOtherBytes) {
  for (const std::size_t offset :
       {0, 9617, 10'407, 10'489, 10'494, 10'496, 10'498, 10'501, 10'507, 21'281}) {
    EXPECT_EQ(DefaultsPlace(offset), 799U) << offset;
  }
}

TEST(MainDefaults, AreTheirBytesAndBitsAndNothingElse) {
  DefaultsRecord record;
  record.fill(0xFF);
  auto image = image_fixture::MakeImage();
  const CloneImage before = *image;
  CopyMainDefaultsToImage(record, *image);
  const std::vector<std::size_t> expected = {10'200, 10'201, 10'202, 10'203, 10'206, 10'224,
                                             10'240, 10'241, 10'504, 10'505, 10'506};
  EXPECT_EQ(image_fixture::DifferingOffsets(before, *image), expected);
  EXPECT_EQ((*image)[10'504], 0xFF);
  EXPECT_EQ((*image)[10'505], 0xBF);
  EXPECT_EQ((*image)[10'506], 0xB7);
}

TEST(MainDefaults, LeaveTheBitsOfOtherDialogsInTheImage) {
  DefaultsRecord record{};
  auto image = image_fixture::MakeImage();
  image->fill(0xFF);
  CopyMainDefaultsToImage(record, *image);
  EXPECT_EQ((*image)[10'504], 0x00);
  EXPECT_EQ((*image)[10'505], 0x40);
  EXPECT_EQ((*image)[10'506], 0x48);
  EXPECT_EQ((*image)[10'205], 0xFF);
}

TEST(MainDefaults, AreStoredBackAlike) {
  auto image = image_fixture::MakeImage();
  image->fill(0xFF);
  DefaultsRecord record{};
  CopyMainDefaultsToRecord(*image, record);
  DefaultsRecord expected{};
  for (const std::size_t place : {582, 583, 584, 585, 588, 606, 622, 623, 796}) {
    expected[place] = 0xFF;
  }
  expected[797] = 0xBF;
  expected[798] = 0xB7;
  EXPECT_EQ(record, expected);
}

class DefaultsFileTest : public testing::Test {
 protected:
  DefaultsFileTest() {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      bytes[i] = static_cast<std::uint8_t>(i * 7);
    }
  }
  TempFolder folder;
  std::string current_path = folder.File("qz7.def");
  std::string user_path = folder.File("user.def");
  DefaultsFile file{.path = current_path, .fallback_path = user_path};
  Bytes bytes = Bytes(799);
  DefaultsRecord record{};
};

TEST_F(DefaultsFileTest, HoldsTheRecordAsItStands) {
  PutFile(file.path, bytes);
  EXPECT_TRUE(LoadDefaultsRecord(record, file));
  EXPECT_EQ(FirstDifference(record, bytes), -1);
  SaveDefaultsRecord(record, {.path = folder.File("copy.def"), .fallback_path = ""});
  EXPECT_EQ(FileBytes(folder.File("copy.def")), bytes);
}

TEST_F(DefaultsFileTest, AShortOneLeavesTheRestAsItWas) {
  PutFile(file.path, Bytes(10, 9));
  record.fill(5);
  EXPECT_TRUE(LoadDefaultsRecord(record, file));
  EXPECT_EQ(record[9], 9);
  EXPECT_EQ(record[10], 5);
  EXPECT_EQ(record[798], 5);
}

TEST_F(DefaultsFileTest, AnOversizedOneGivesItsFirstBytes) {
  Bytes longer = bytes;
  longer.resize(900, 0x77);
  PutFile(file.path, longer);
  EXPECT_TRUE(LoadDefaultsRecord(record, file));
  EXPECT_EQ(FirstDifference(record, bytes), -1);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(DefaultsFileTest, AMissingOneLeavesTheRecordAsItWas) {
  record.fill(5);
  EXPECT_FALSE(LoadDefaultsRecord(record, file));
  EXPECT_EQ(record[0], 5);
  EXPECT_EQ(record[798], 5);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(DefaultsFileTest, IsTheOneInTheCurrentFolderWhateverTheUsersFolderHas) {
  PutFile(user_path, bytes);
  const DefaultsFile chosen = ChooseDefaultsFile(current_path, user_path);
  EXPECT_FALSE(LoadDefaultsRecord(record, chosen));
  SaveDefaultsRecord(record, chosen);
  EXPECT_EQ(FileBytes(current_path), Bytes(799));
  EXPECT_EQ(FileBytes(user_path), bytes);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"qz7.def", "user.def"}));
}

TEST_F(DefaultsFileTest, IsTheUsersOwnWhereTheCurrentFolderCannotBeWritten) {
  PutFile(user_path, bytes);
  const DefaultsFile chosen = ChooseDefaultsFile(folder.File("none") + "/qz7.def", user_path);
  EXPECT_TRUE(LoadDefaultsRecord(record, chosen));
  EXPECT_EQ(FirstDifference(record, bytes), -1);
  record.fill(9);
  SaveDefaultsRecord(record, chosen);
  EXPECT_EQ(FileBytes(user_path), Bytes(799, 9));
}

TEST_F(DefaultsFileTest, AReadOnlyOneIsReadUntilTheUserHasOneAndNeverWritten) {
  PutFile(current_path, bytes);
  std::filesystem::permissions(current_path, std::filesystem::perms::owner_read);
  const DefaultsFile chosen = ChooseDefaultsFile(current_path, user_path);
  EXPECT_TRUE(LoadDefaultsRecord(record, chosen));
  EXPECT_EQ(FirstDifference(record, bytes), -1);
  SaveDefaultsRecord(DefaultsRecord{}, chosen);
  EXPECT_EQ(FileBytes(current_path), bytes);
  EXPECT_EQ(FileBytes(user_path), Bytes(799));
  EXPECT_TRUE(LoadDefaultsRecord(record, ChooseDefaultsFile(current_path, user_path)));
  EXPECT_EQ(record, DefaultsRecord{});
  std::filesystem::permissions(current_path, std::filesystem::perms::owner_all);
}

TEST_F(DefaultsFileTest, IsTheOneInTheCurrentFolderWhereTheUserHasNoFolder) {
  const std::string nowhere = folder.File("none") + "/qz7.def";
  EXPECT_EQ(ChooseDefaultsFile(nowhere, "").path, nowhere);
}

TEST_F(DefaultsFileTest, AFailedSaveSaysNothing) {
  SaveDefaultsRecord(record, {.path = folder.File("none") + "/qz7.def", .fallback_path = ""});
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace qz7
