#include "core/files/profile.h"

#include <gtest/gtest.h>

#include <vector>

namespace qz7 {
namespace {

using Lines = std::vector<std::string>;

TEST(Profile, FindsAKeyInEitherCase) {
  const Profile profile = ProfileOf(Lines{"DataDir=C:\\radio"});
  EXPECT_EQ(ProfileText(profile, "DATADIR", "", 10), "C:\\radio");
  EXPECT_EQ(ProfileText(profile, "datadir", "", 10), "C:\\radio");
  EXPECT_EQ(ProfileText(profile, "DataDi", "none", 10), "none");
  EXPECT_EQ(ProfileText(profile, "DataDirs", "none", 10), "none");
}

TEST(Profile, LeavesBlanksAndAPairOfQuotesAside) {
  const Profile profile = ProfileOf(Lines{" a = 1 ", "b=\"2 \"", "c=' 3'", "d=\"4", "e=5'",
                                          "f=\"6'", "g=\"", "h=\"\"", "i=\t7\t", "j=\"'8'\""});
  const Profile expected = {{"a", "1"},    {"b", "2 "}, {"c", " 3"}, {"d", "\"4"}, {"e", "5'"},
                            {"f", "\"6'"}, {"g", "\""}, {"h", ""},   {"i", "7"},   {"j", "'8'"}};
  EXPECT_EQ(profile, expected);
}

TEST(Profile, TakesTheFirstLineOfAKeyAndNoneWithoutASign) {
  const Profile profile = ProfileOf(Lines{"Com=1", "com=2", "DataDir", "", "=3", "x=y=z"});
  EXPECT_EQ(profile, (Profile{{"", "3"}, {"Com", "1"}, {"x", "y=z"}}));
}

TEST(Profile, GivesAnEmptyValueAsItIs) {
  EXPECT_EQ(ProfileText(ProfileOf(Lines{"Com="}), "Com", "0", 20), "");
}

TEST(Profile, CutsWhatItGives) {
  const Profile profile = {{"Com", "12345"}};
  EXPECT_EQ(ProfileText(profile, "Com", "", 3), "123");
  EXPECT_EQ(ProfileText(profile, "Com", "", 5), "12345");
  EXPECT_EQ(ProfileText(profile, "None", "12345", 3), "123");
}

}  // namespace
}  // namespace qz7
