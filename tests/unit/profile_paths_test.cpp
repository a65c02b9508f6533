#include "core/files/profile_paths.h"

#include <gtest/gtest.h>

#include "core/files/preferences.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

const std::filesystem::path kFolder = u8"C:\\кот 1%";

TEST(ProfilePaths, APathThatTheTextHoldsStandsThereAlone) {
  WriteProfilePath("DataDir", "C:\\radio", 244);
  EXPECT_EQ(test_seams.profile, (Profile{{"DataDir", "C:\\radio"}}));
  EXPECT_EQ(ReadProfilePath(ReadProfile(), "DataDir", 244).native(),
            std::filesystem::path("C:\\radio").native());
}

TEST(ProfilePaths, APathThatTheCodePageLacksIsFoundAgain) {
  test_seams.ascii_paths = true;
  WriteProfilePath("DataDir", kFolder, 244);
  EXPECT_EQ(test_seams.profile, (Profile{{"DataDir", "C:\\?????? 1%"},
                                         {"DataDirUtf8", "C:\\%D0%BA%D0%BE%D1%82%201%25"}}));
  EXPECT_EQ(ReadProfilePath(ReadProfile(), "DataDir", 244).native(), kFolder.native());
}

TEST(ProfilePaths, APathThatIsLongerThanTheTextIsFoundAgain) {
  const std::filesystem::path path = "C:\\" + std::string(300, 'a');
  WriteProfilePath("DataDir", path, 244);
  EXPECT_EQ(test_seams.profile["DataDir"], "C:\\" + std::string(300, 'a'));
  EXPECT_EQ(ReadProfilePath(ReadProfile(), "DataDir", 244).native(), path.native());
}

TEST(ProfilePaths, ATextThatSomebodyElseHasWrittenSinceCounts) {
  test_seams.ascii_paths = true;
  WriteProfilePath("DataDir", kFolder, 244);
  test_seams.profile["DataDir"] = "D:\\mine";
  EXPECT_EQ(ReadProfilePath(ReadProfile(), "DataDir", 244).native(),
            std::filesystem::path("D:\\mine").native());
  test_seams.profile["DataDir"] = "";
  EXPECT_TRUE(ReadProfilePath(ReadProfile(), "DataDir", 244).empty());
}

TEST(ProfilePaths, TheSecondTextGoesWithItsPath) {
  test_seams.ascii_paths = true;
  WriteProfilePath("DataDir", kFolder, 244);
  WriteProfilePath("DataDir", "C:\\radio", 244);
  EXPECT_EQ(test_seams.profile, (Profile{{"DataDir", "C:\\radio"}}));
}

TEST(ProfilePaths, ASecondTextThatIsNoneIsLeftAside) {
  for (const char* junk : {"%", "%4", "%zz", "\xFF\xFE", "%FF%FE", "%D0"}) {
    test_seams.profile = {{"DataDir", "C:\\radio"}, {"DataDirUtf8", junk}};
    EXPECT_EQ(ReadProfilePath(ReadProfile(), "DataDir", 244).native(),
              std::filesystem::path("C:\\radio").native());
  }
}

TEST(ProfilePaths, TheDataFolderAndTheTemplateAreKeptSo) {
  test_seams.ascii_paths = true;
  Preferences preferences;
  ChangeDataFolder(preferences, kFolder);
  preferences.template_path = u8"C:\\日本.tpl";
  SaveTemplatePath(preferences);
  Preferences loaded;
  LoadPreferences(loaded, "C:\\programs");
  EXPECT_EQ(loaded.data_folder.native(), kFolder.native());
  EXPECT_EQ(loaded.template_path.native(), preferences.template_path.native());
}

TEST(ProfilePaths, TheProgramsFolderIsKeptSoAtTheFirstStart) {
  test_seams.ascii_paths = true;
  Preferences preferences;
  LoadPreferences(preferences, kFolder);
  EXPECT_EQ(preferences.data_folder.native(), kFolder.native());
  Preferences loaded;
  LoadPreferences(loaded, "C:\\programs");
  EXPECT_EQ(loaded.data_folder.native(), kFolder.native());
}

}  // namespace
}  // namespace qz7
