#include "core/files/preferences.h"

#include <gtest/gtest.h>

#include "core/image/band_plan.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

using Writes = std::vector<std::pair<std::string, std::string>>;

Preferences Loaded() {
  Preferences preferences;
  LoadPreferences(preferences, "C:\\Programs");
  return preferences;
}

TEST(Preferences, AFlagIsTrueWhenItsValueStartsWith1) {
  for (const char* value : {"1", "10", "1x"}) {
    test_seams.profile["UseVornDefaults"] = value;
    EXPECT_TRUE(Loaded().use_vorn_defaults) << value;
  }
}

TEST(Preferences, AnyOtherValueAnEmptyAndAMissingOneAreFalse) {
  for (const char* value : {"0", "X", "", " 1", "01", "true"}) {
    test_seams.profile["UseVornDefaults"] = value;
    EXPECT_FALSE(Loaded().use_vorn_defaults) << value;
  }
  test_seams.profile.erase("UseVornDefaults");
  EXPECT_FALSE(Loaded().use_vorn_defaults);
}

TEST(Preferences, EveryFlagHasItsOwnKey) {
  test_seams.profile = {{"UseMainDefaultsNew", "1"}};
  EXPECT_TRUE(Loaded().use_main_defaults_new);
  EXPECT_FALSE(Loaded().use_main_defaults_open);
  test_seams.profile = {{"UseMainDefaultsOpen", "1"}};
  EXPECT_TRUE(Loaded().use_main_defaults_open);
  test_seams.profile = {{"UseSettingDefaults", "1"}};
  EXPECT_TRUE(Loaded().use_setting_defaults);
  test_seams.profile = {{"UseDialDefaults", "1"}};
  EXPECT_TRUE(Loaded().use_dial_defaults);
  test_seams.profile = {{"UseWxNamesDefaults", "1"}};
  EXPECT_TRUE(Loaded().use_wx_names_defaults);
  test_seams.profile = {{"UseIconDefaults", "1"}};
  EXPECT_TRUE(Loaded().use_icon_defaults);
  test_seams.profile = {{"UseDontAskDefaults", "1"}};
  EXPECT_TRUE(Loaded().use_dont_ask_defaults);
  test_seams.profile = {{"AllowAnyBand", "1"}};
  EXPECT_TRUE(Loaded().allow_any_band);
}

TEST(Preferences, AnEmptyDataFolderBecomesTheProgramsAndIsWritten) {
  EXPECT_EQ(Loaded().data_folder, "C:\\Programs");
  EXPECT_EQ(test_seams.profile_writes, (Writes{{"DataDir", "C:\\Programs"}}));
  test_seams.profile_writes.clear();
  EXPECT_EQ(Loaded().data_folder, "C:\\Programs");
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST(Preferences, LongPathsAreCut) {
  test_seams.profile["DataDir"] = std::string(300, 'd');
  test_seams.profile["TemplateFile"] = std::string(300, 't');
  EXPECT_EQ(Loaded().data_folder.native().size(), 244U);
  EXPECT_EQ(Loaded().template_path.native().size(), 259U);
}

TEST(Preferences, ANegativePortIsNone) {
  test_seams.profile["Com"] = "-3";
  EXPECT_EQ(Loaded().port_index, 0);
}

TEST(Preferences, APortIsADecimalNumberAndALargeOnePassesStartUp) {
  EXPECT_EQ(Loaded().port_index, 0);
  test_seams.profile["Com"] = "3";
  EXPECT_EQ(Loaded().port_index, 3);
  test_seams.profile["Com"] = "12";
  EXPECT_EQ(Loaded().port_index, 12);
  test_seams.profile["Com"] = "junk";
  EXPECT_EQ(Loaded().port_index, 0);
  test_seams.profile["Com"] = "99999999999999999999";
  EXPECT_GT(Loaded().port_index, 9);
}

TEST(Preferences, ABadTemplateIsReportedAtTheStart) {
  const TempFolder folder;
  PutFile(folder.File("bad.tpl"), Bytes(100, 1));
  test_seams.profile["TemplateFile"] = folder.File("bad.tpl");
  EXPECT_EQ(Loaded().template_path, folder.File("bad.tpl"));
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"Not a template file:\n" + folder.File("bad.tpl")});
}

TEST(Preferences, AMissingAndAGoodTemplateAreNotReported) {
  const TempFolder folder;
  test_seams.profile["TemplateFile"] = folder.File("none.tpl");
  Loaded();
  PutFile(folder.File("good.tpl"), IntactFile(std::string_view("TPL\0", 4)));
  test_seams.profile["TemplateFile"] = folder.File("good.tpl");
  Loaded();
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(Preferences, WriteAllEightKeysAs0Or1) {
  Preferences preferences;
  preferences.use_dial_defaults = true;
  SavePreferenceFlags(preferences);
  const Profile expected = {{"UseMainDefaultsNew", "0"}, {"UseMainDefaultsOpen", "0"},
                            {"UseSettingDefaults", "0"}, {"UseVornDefaults", "0"},
                            {"UseDialDefaults", "1"},    {"UseWxNamesDefaults", "0"},
                            {"UseIconDefaults", "0"},    {"UseDontAskDefaults", "0"}};
  EXPECT_EQ(test_seams.profile, expected);
}

}  // namespace
}  // namespace qz7
