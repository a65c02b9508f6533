#include "core/files/file_output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

// Bytes that a text mode would change, and more of them than any buffer holds.
Bytes Sample(std::size_t size) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i) {
    bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 251);
  }
  return bytes;
}

class FileOutput : public testing::Test {
 protected:
  std::vector<std::string> Names() const { return folder_.Names(); }

  TempFolder folder_;
  std::string path_ = folder_.File("radio.rdf");
};

TEST_F(FileOutput, MakesANewFile) {
  EXPECT_EQ(WriteWholeFile(path_, Sample(21'282)), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(path_), Sample(21'282));
  EXPECT_EQ(Names(), std::vector<std::string>{"radio.rdf"});
}

TEST_F(FileOutput, KeepsEveryByteAsItIs) {
  const Bytes awkward = {0x00, 0x0A, 0x0D, 0x0D, 0x0A, 0x1A, 0xFF, 0x0A};
  EXPECT_EQ(WriteWholeFile(path_, awkward), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(path_), awkward);
}

TEST_F(FileOutput, ReplacesAFileWhole) {
  PutFile(path_, Bytes(50'000, 0x11));
  EXPECT_EQ(WriteWholeFile(path_, Sample(799)), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(path_), Sample(799));
  EXPECT_EQ(Names(), std::vector<std::string>{"radio.rdf"});
}

TEST_F(FileOutput, ReplacesAFileAgainAndAgain) {
  for (std::size_t size = 1; size <= 5; ++size) {
    EXPECT_EQ(WriteWholeFile(path_, Sample(size)), WriteOutcome::kWritten);
    EXPECT_EQ(FileBytes(path_), Sample(size));
  }
  EXPECT_EQ(Names(), std::vector<std::string>{"radio.rdf"});
}

TEST_F(FileOutput, WritesAnEmptyFile) {
  PutFile(path_, Bytes(10, 0x11));
  EXPECT_EQ(WriteWholeFile(path_, {}), WriteOutcome::kWritten);
  EXPECT_TRUE(std::filesystem::exists(path_));
  EXPECT_EQ(std::filesystem::file_size(path_), 0U);
}

TEST_F(FileOutput, LeavesTheNeighboursAlone) {
  PutFile(folder_.File("radio.rdf.bak"), Bytes(3, 1));
  PutFile(folder_.File("radio.tmp"), Bytes(4, 2));
  PutFile(folder_.File("radio.rdf.tmp"), Bytes(5, 3));
  PutFile(folder_.File("radio.rdf~"), Bytes(6, 4));
  EXPECT_EQ(WriteWholeFile(path_, Sample(100)), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(folder_.File("radio.rdf.bak")), Bytes(3, 1));
  EXPECT_EQ(FileBytes(folder_.File("radio.tmp")), Bytes(4, 2));
  EXPECT_EQ(FileBytes(folder_.File("radio.rdf.tmp")), Bytes(5, 3));
  EXPECT_EQ(FileBytes(folder_.File("radio.rdf~")), Bytes(6, 4));
  EXPECT_EQ(Names().size(), 5U);
}

TEST_F(FileOutput, TakesANameWithBlanks) {
  const std::string path = folder_.File("my club radio.rdf");
  EXPECT_EQ(WriteWholeFile(path, Sample(100)), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(path), Sample(100));
}

TEST_F(FileOutput, TakesANameWithoutAFolder) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  const WriteOutcome made = WriteWholeFile("bare.rdf", Sample(100));
  const WriteOutcome replaced = WriteWholeFile("bare.rdf", Sample(200));
  std::filesystem::current_path(before);
  EXPECT_EQ(made, WriteOutcome::kWritten);
  EXPECT_EQ(replaced, WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(folder_.File("bare.rdf")), Sample(200));
  EXPECT_EQ(Names(), std::vector<std::string>{"bare.rdf"});
}

TEST_F(FileOutput, TakesAPathOf259Characters) {
  std::string path = folder_.File("");
  path.resize(255, 'n');
  path += ".rdf";
  EXPECT_EQ(WriteWholeFile(path, Sample(100)), WriteOutcome::kWritten);
  EXPECT_EQ(WriteWholeFile(path, Sample(200)), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(path), Sample(200));
}

TEST_F(FileOutput, CannotCreateAFileInAFolderThatIsMissing) {
  const std::string nowhere = (folder_.path() / "missing" / "radio.rdf").string();
  EXPECT_EQ(WriteWholeFile(nowhere, Sample(100)), WriteOutcome::kCannotCreate);
  EXPECT_TRUE(Names().empty());
}

TEST_F(FileOutput, CannotCreateAFileWhereAFolderIs) {
  std::filesystem::create_directory(path_);
  EXPECT_EQ(WriteWholeFile(path_, Sample(100)), WriteOutcome::kCannotCreate);
  EXPECT_TRUE(std::filesystem::is_directory(path_));
  EXPECT_EQ(Names(), std::vector<std::string>{"radio.rdf"});
}

TEST_F(FileOutput, CannotCreateAFileWithoutAName) {
  EXPECT_EQ(WriteWholeFile("", Sample(100)), WriteOutcome::kCannotCreate);
}

TEST_F(FileOutput, DoesNotReplaceAReadOnlyFile) {
  PutFile(path_, Bytes(30, 0x11));
  constexpr auto kRead = std::filesystem::perms::owner_read | std::filesystem::perms::group_read |
                         std::filesystem::perms::others_read;
  std::filesystem::permissions(path_, kRead);
  const WriteOutcome outcome = WriteWholeFile(path_, Sample(100));
  std::filesystem::permissions(path_, std::filesystem::perms::owner_write,
                               std::filesystem::perm_options::add);
  EXPECT_EQ(outcome, WriteOutcome::kCannotCreate);
  EXPECT_EQ(FileBytes(path_), Bytes(30, 0x11));
  EXPECT_EQ(Names(), std::vector<std::string>{"radio.rdf"});
}

TEST_F(FileOutput, KnowsWhatCanBeWrittenAndLeavesNoTrace) {
  EXPECT_TRUE(CanWriteFile(path_));
  EXPECT_TRUE(Names().empty());
  EXPECT_FALSE(CanWriteFile(folder_.File("missing/radio.rdf")));
  EXPECT_FALSE(CanWriteFile(folder_.path().string()));
  PutFile(path_, Bytes(30, 0x11));
  EXPECT_TRUE(CanWriteFile(path_));
  EXPECT_EQ(FileBytes(path_), Bytes(30, 0x11));
  std::filesystem::permissions(path_, std::filesystem::perms::owner_read);
  EXPECT_FALSE(CanWriteFile(path_));
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
  EXPECT_EQ(Names(), std::vector<std::string>{"radio.rdf"});
}

TEST_F(FileOutput, ShowsNothingWhenAllIsWell) {
  EXPECT_TRUE(WriteFileOrShow(path_, Sample(100)));
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(FileBytes(path_), Sample(100));
}

TEST_F(FileOutput, ShowsThePathThatCannotBeCreated) {
  const std::string nowhere = (folder_.path() / "missing" / "radio.rdf").string();
  EXPECT_FALSE(WriteFileOrShow(nowhere, Sample(100)));
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"Cannot create file:\n" + nowhere});
  EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
}

TEST_F(FileOutput, LeavesTheMessageToItsCaller) {
  EXPECT_EQ(WriteWholeFile(path_, Sample(100)), WriteOutcome::kWritten);
  EXPECT_EQ(WriteWholeFile(folder_.File("missing/radio.rdf"), Sample(1)),
            WriteOutcome::kCannotCreate);
  EXPECT_TRUE(test_seams.messages.empty());
}

}  // namespace
}  // namespace qz7
