#include "core/files/paths.h"

#include <gtest/gtest.h>

#include "core/files/defaults_record.h"
#include "core/files/file_output.h"
#include "core/files/radio_data_file.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/merge_source.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

// Letters of several scripts, which no single code page writes.
constexpr const char8_t* kManyScripts = u8"Žluťoučký кот 日本";

TEST(Paths, TheNameIsWhatStandsBehindTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(NameOffset("C:\\radio\\club.rdf"), 9U);
  EXPECT_EQ(NameOffset("/radio/club.rdf"), 7U);
  EXPECT_EQ(NameOffset("club.rdf"), 0U);
  EXPECT_EQ(NamePart("C:\\radio\\club.rdf").native(), std::filesystem::path("club.rdf").native());
  EXPECT_EQ(NamePart("C:\\radio\\").native(), std::filesystem::path().native());
}

TEST(Paths, AFolderAndANameStandWithABackslashBetween) {
  EXPECT_EQ(InFolder("C:", "club.rdf").native(), std::filesystem::path("C:\\club.rdf").native());
  EXPECT_EQ(InFolder("C:\\radio", ".tpl").native(),
            std::filesystem::path("C:\\radio\\.tpl").native());
}

TEST(Paths, AreTheSameInAnyCase) {
  EXPECT_TRUE(SamePath("C:\\Radio", "c:\\rADIO"));
  EXPECT_FALSE(SamePath("C:\\Radio", "C:\\Radi"));
  EXPECT_FALSE(SamePath("C:\\Radio", "C:\\Radiox"));
  EXPECT_FALSE(SamePath("C:\\[", "C:\\{"));
}

TEST(Paths, ThatTheSystemTakesStayAsTheyAre) {
  EXPECT_EQ(SystemPath("club.rdf").native(), std::filesystem::path("club.rdf").native());
  EXPECT_EQ(SystemPath("").native(), std::filesystem::path().native());
}

// Each test runs in a folder of this name.
class PathsIn : public testing::TestWithParam<bool> {
 protected:
  static std::vector<std::u8string> Long() {
    return {std::u8string(99, u8'a'), std::u8string(99, u8'b'), std::u8string(99, u8'c')};
  }
  PathsIn() {
    for (const std::u8string& name :
         GetParam() ? Long() : std::vector<std::u8string>{kManyScripts}) {
      here /= name;
      EXPECT_TRUE(std::filesystem::create_directory(SystemPath(here)));
    }
  }
  ~PathsIn() override {
    // The system's own removal does not go so deep.
    for (; here != folder.path(); here = here.parent_path()) {
      for (const char8_t* name : {u8"кот.rdf", u8"日本.tpl", u8"список.txt", u8"qz7.def"}) {
        std::filesystem::remove(SystemPath(here / name), ignored);
      }
      std::filesystem::remove(SystemPath(here), ignored);
    }
  }

  TempFolder folder;
  std::filesystem::path here = folder.path();
  std::error_code ignored;
};

TEST_P(PathsIn, ARadioDataFileIsWrittenReadAndReplaced) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  const std::filesystem::path path = here / u8"кот.rdf";
  for (const std::uint8_t mark : Bytes{1, 2}) {
    image[100] = mark;
    ASSERT_TRUE(CanWriteFile(path));
    ASSERT_TRUE(WriteRadioDataFile(image, path));
    CloneImage back{};
    ASSERT_TRUE(ReadRadioDataFile(back, path));
    EXPECT_EQ(back[100], mark);
  }
  EXPECT_EQ(std::filesystem::file_size(SystemPath(path)), 21'282U);
  MergeSource source;
  EXPECT_TRUE(ReadMergeSource(source, image, path));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_P(PathsIn, ATemplateIsWrittenAndRead) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  ASSERT_TRUE(WriteTemplateFile(image, here / u8"日本.tpl"));
  EXPECT_TRUE(ReadTemplateFile(image, here / u8"日本.tpl"));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_P(PathsIn, TheDefaultsAreKept) {
  DefaultsRecord record{};
  record[798] = 7;
  const DefaultsFile file = ChooseDefaultsFile(here / "qz7.def", folder.path() / "other.def");
  EXPECT_EQ(file.path.native(), (here / "qz7.def").native());
  SaveDefaultsRecord(record, file);
  DefaultsRecord back{};
  EXPECT_TRUE(LoadDefaultsRecord(back, file));
  EXPECT_EQ(back, record);
}

TEST_P(PathsIn, AListIsRead) {
  const std::filesystem::path path = here / u8"список.txt";
  const Bytes line = {'1', '4', '5', '\n'};
  ASSERT_EQ(WriteWholeFile(path, line), WriteOutcome::kWritten);
  ImportSession session;
  session.options.path = path;
  const auto lines = OpenImportFile(session);
  ASSERT_TRUE(lines);
  EXPECT_EQ(lines->text, "145\n");
}

INSTANTIATE_TEST_SUITE_P(OfManyScripts, PathsIn, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(BeyondThePlainLength, PathsIn, testing::Values(true));

}  // namespace
}  // namespace qz7
