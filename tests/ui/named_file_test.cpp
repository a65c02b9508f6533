#include "desktop/named_file.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "core/files/defaults_record.h"
#include "core/files/seams.h"
#include "desktop/locations.h"
#include "tests/unit/temp_folder.h"

// Names of files seen from the current folder.
namespace qz7 {
namespace {

class CurrentFolder : public testing::Test {
 protected:
  CurrentFolder() { Enter(folder.path()); }
  ~CurrentFolder() override { Enter(before_); }
  void Enter(const std::filesystem::path& path) { EXPECT_TRUE(SetCurrentDirectoryW(path.c_str())); }

  TempFolder folder;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

using NamedFileTest = CurrentFolder;

TEST_F(NamedFileTest, IsTakenInUpperCaseWhateverItsScript) {
  const NamedFile file = FileOfWord({L"c:\\\u017Elu\u0165\\\u043A\u043E\u0442.rdf", true});
  ASSERT_TRUE(file.path);
  EXPECT_EQ(file.path->native(), L"C:\\\u017DLU\u0164\\\u041A\u041E\u0422.RDF");
}

TEST_F(NamedFileTest, IsFoundInTheCurrentFolder) {
  const NamedFile file = FileOfWord({L"club", false});
  ASSERT_TRUE(file.path);
  EXPECT_EQ(file.path->native(), std::filesystem::current_path().native() + L"\\CLUB");
  EXPECT_EQ(file.name, "club");
}

TEST_F(NamedFileTest, HasNoPathWhereThatWouldBeTooLong) {
  const std::wstring name(250, L'n');
  EXPECT_EQ(FileOfWord({name, false}).path, std::nullopt);
  EXPECT_EQ(FileOfWord({name, false}).name, std::string(250, 'n'));
}

TEST_F(NamedFileTest, MayBeLongInQuotationMarks) {
  const std::wstring name = L"C:\\" + std::wstring(300, L'N') + L".RDF";
  EXPECT_EQ(FileOfWord({name, true}).path->native(), name);
}

using DefaultsFilePlace = CurrentFolder;

TEST_F(DefaultsFilePlace, IsTheFolderOfTheStartWhereverTheCurrentOneMovesTo) {
  std::filesystem::create_directory(folder.path() / "elsewhere");
  const DefaultsFile file = FindDefaultsFile();
  Enter(folder.path() / "elsewhere");
  SaveDefaultsRecord(DefaultsRecord{}, file);
  Enter(folder.path());
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"elsewhere", "qz7.def"}));
  EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "elsewhere"));
}

TEST_F(DefaultsFilePlace, MayHaveANameOfAnyScript) {
  const std::filesystem::path here = folder.path() / u8"Žluťoučký кот 日本";
  std::filesystem::create_directory(here);
  Enter(here);
  SaveDefaultsRecord(DefaultsRecord{}, FindDefaultsFile());
  EXPECT_EQ(std::filesystem::file_size(here / "qz7.def"), 799U);
  Enter(folder.path());
}

}  // namespace
}  // namespace qz7
