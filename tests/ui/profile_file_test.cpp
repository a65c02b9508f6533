#include "desktop/files/profile_file.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <vector>

#include "desktop/toolkit/ansi_text.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

constexpr const char* kSection = "QZ-7H Programmer";

// The value that the system gives for the key.
std::string SystemsValue(const std::filesystem::path& path, const std::string& key) {
  std::wstring value(0x10000, L'\0');
  value.resize(GetPrivateProfileStringW(WideText(kSection).c_str(), WideText(key).c_str(),
                                        L"missing", value.data(), static_cast<DWORD>(value.size()),
                                        path.c_str()));
  return AnsiText(value);
}

class ProfileFile : public testing::Test {
 protected:
  void Write(const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

  TempFolder folder;
  const std::filesystem::path path = folder.path() / "Tamro.ini";
};

TEST_F(ProfileFile, GivesWhatTheSystemGivesForEachKey) {
  Write(
      "[Other]\r\nCom=9\r\n"
      "; a remark=1\r\n"
      "[QZ-7H Programmer]\r\n"
      "DataDir=C:\\radio\r\n"
      "  TemplateFile  =  C:\\my template.tpl  \r\n"
      "UseIconDefaults=\"1\"\r\n"
      "UseDialDefaults='1'\r\n"
      "UseVornDefaults=\"1\r\n"
      "UseSettingDefaults=1 ; on\r\n"
      "; Com=4\r\n"
      "\r\n"
      "Com=\r\n"
      "Com=5\r\n"
      "noSign\r\n"
      "ImportDir=a=b\r\n"
      "AllowAnyBand=\xDE\xE9\r\n"
      "[Third]\r\nPlace=1\r\n");
  const Profile profile = ReadProfileFile(path, kSection);
  for (const char* key : {"DataDir", "datadir", "TemplateFile", "UseIconDefaults",
                          "UseDialDefaults", "UseVornDefaults", "UseSettingDefaults", "Com",
                          "noSign", "ImportDir", "AllowAnyBand", "Place", "None"}) {
    EXPECT_EQ(ProfileText(profile, key, "missing", 0x10000), SystemsValue(path, key)) << key;
  }
  EXPECT_EQ(ProfileText(profile, "UseIconDefaults", "", 9), "1");
}

TEST_F(ProfileFile, FindsWhatTheSystemWrote) {
  for (const char* value : {"1", "", "C:\\a folder\\", "a=b", "\xDE"}) {
    WritePrivateProfileStringW(WideText(kSection).c_str(), L"Value", WideText(value).c_str(),
                               path.c_str());
    EXPECT_EQ(ReadProfileFile(path, kSection), (Profile{{"Value", value}}));
  }
}

TEST_F(ProfileFile, IsReadWholeHoweverLongItIs) {
  for (const std::size_t size : {4000U, 4084U, 4085U, 4086U, 4087U, 4088U, 4096U, 60'000U}) {
    Write("[QZ-7H Programmer]\r\nFirst=" + std::string(size, 'a') + "\r\nLast=2\r\n");
    const Profile profile = ReadProfileFile(path, kSection);
    EXPECT_EQ(ProfileText(profile, "First", "", 0x10000), std::string(size, 'a'));
    EXPECT_EQ(ProfileText(profile, "Last", "", 9), "2") << size;
  }
}

TEST_F(ProfileFile, IsEmptyWhereItCannotBeRead) {
  EXPECT_TRUE(ReadProfileFile(folder.path() / "none" / "Tamro.ini", kSection).empty());
  Write("[Other]\r\nCom=9\r\n");
  EXPECT_TRUE(ReadProfileFile(path, kSection).empty());
}

}  // namespace
}  // namespace qz7
