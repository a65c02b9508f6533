#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "desktop/about_dialog.h"
#include "desktop/locations.h"
#include "desktop/version_texts.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

using Record = std::vector<std::uint8_t>;
using Values = std::vector<std::pair<std::string, std::string>>;

void PutWord(Record& record, std::size_t value) {
  record.push_back(static_cast<std::uint8_t>(value));
  record.push_back(static_cast<std::uint8_t>(value >> 8));
}

void Align(Record& record) { record.resize((record.size() + 3) / 4 * 4); }

void Append(Record& record, const Record& more) {
  Align(record);
  record.insert(record.end(), more.begin(), more.end());
}

// A block of a version record: its size, its value's size, its kind, its name, the value, and the
// blocks below it.
Record Block(const std::string& name, bool is_text, std::size_t value_size, const Record& value,
             const std::vector<Record>& below) {
  Record block;
  PutWord(block, 0);
  PutWord(block, value_size);
  PutWord(block, is_text ? 1 : 0);
  for (const char c : name + '\0') {
    PutWord(block, static_cast<unsigned char>(c));
  }
  Append(block, value);
  for (const Record& part : below) {
    Append(block, part);
  }
  block[0] = static_cast<std::uint8_t>(block.size());
  block[1] = static_cast<std::uint8_t>(block.size() >> 8);
  return block;
}

Record TextBlock(const std::string& name, const std::string& text) {
  Record value;
  for (const char c : text + '\0') {
    PutWord(value, static_cast<unsigned char>(c));
  }
  return Block(name, true, text.size() + 1, value, {});
}

// With this translation in the record, and its values under this key.
Record MakeRecord(const Record& translation, const std::string& key, const Values& values) {
  std::vector<Record> texts;
  for (const auto& [name, text] : values) {
    texts.push_back(TextBlock(name, text));
  }
  VS_FIXEDFILEINFO fixed{};
  fixed.dwSignature = 0xFEEF04BD;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(&fixed);
  const Record strings = Block("StringFileInfo", true, 0, {}, {Block(key, true, 0, {}, texts)});
  const Record variables =
      Block("VarFileInfo", true, 0, {},
            {Block("Translation", false, translation.size(), translation, {})});
  return Block("VS_VERSION_INFO", false, sizeof fixed, Record(bytes, bytes + sizeof fixed),
               {strings, variables});
}

const Record kGerman = {0x07, 0x04, 0xE4, 0x04};
constexpr const char* kGermanKey = "040704E4";

class AboutTest : public WindowTest {
 protected:
  // A program file with that version record and no other resource.
  std::string PutProgram(const std::string& name, const std::optional<Record>& record = {}) {
    const std::string path = folder.File(name);
    EXPECT_TRUE(
        CopyFileW(BesideProgram("qz732.dll").c_str(), std::filesystem::path(path).c_str(), FALSE));
    const HANDLE update = BeginUpdateResourceA(path.c_str(), TRUE);
    EXPECT_NE(update, nullptr);
    if (record) {
      EXPECT_TRUE(UpdateResourceA(update, RT_VERSION, MAKEINTRESOURCEA(VS_VERSION_INFO),
                                  MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL),
                                  const_cast<std::uint8_t*>(record->data()),
                                  static_cast<DWORD>(record->size())));
    }
    EXPECT_TRUE(EndUpdateResourceA(update, FALSE));
    return path;
  }

  // The fields that the box shows of a program file, in their order on the dialog.
  std::vector<std::string> Shown(const std::string& path) {
    std::vector<std::string> texts;
    const DialogScript script([&](HWND dialog) {
      for (int control = 101; control <= 106; ++control) {
        texts.push_back(TextOf(dialog, control));
      }
      Press(dialog, IDOK);
    });
    ShowAboutDialog(path);
    return texts;
  }
};

const Values kAll = {{"FileDescription", "A programmer"},
                     {"FileVersion", "3.2.1"},
                     {"CompanyName", "The makers"},
                     {"Address", "At home"},
                     {"Support", "By letter"},
                     {"LegalCopyright", "Ours"},
                     {"SpecialBuild", "For the club"}};

TEST_F(AboutTest, ShowsEveryValueOfTheRecordInItsOwnField) {
  EXPECT_EQ(Shown(PutProgram("all.exe", MakeRecord(kGerman, kGermanKey, kAll))),
            (std::vector<std::string>{"A programmer", "Version 3.2.1", "Ours", "The makers",
                                      "At home", "By letter"}));
}

TEST_F(AboutTest, HasItsFieldsFromTopToBottomInTheOrderOfTheirNumbers) {
  std::vector<LONG> tops;
  const DialogScript script([&](HWND dialog) {
    for (int control = 101; control <= 106; ++control) {
      RECT place;
      GetWindowRect(GetDlgItem(dialog, control), &place);
      tops.push_back(place.top);
    }
    Press(dialog, IDOK);
  });
  ShowAboutDialog(ProgramPath());
  ASSERT_EQ(tops.size(), 6U);
  EXPECT_EQ(std::adjacent_find(tops.begin(), tops.end(), std::greater_equal<>()), tops.end());
}

TEST_F(AboutTest, TheLicenceThatItNamesLiesBesideTheProgram) {
  const auto texts = ReadVersionTexts(BesideProgram("qz7.exe"));
  ASSERT_TRUE(texts);
  EXPECT_NE(texts->legal.find("LICENSE"), std::string::npos);
  EXPECT_NE(GetFileAttributesW(BesideProgram("LICENSE").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(AboutTest, ShowsTheProgramsIcon) {
  const DialogScript script([](HWND dialog) {
    EXPECT_NE(SendDlgItemMessageA(dialog, ID_ABOUT_ICON, STM_GETICON, 0, 0), 0);
    SavePicture(dialog, "about_icon");
    Press(dialog, IDOK);
  });
  ShowAboutDialog(ProgramPath());
}

TEST_F(AboutTest, KnowsTheSpecialBuildThatItDoesNotShow) {
  const auto texts = ReadVersionTexts(PutProgram("all.exe", MakeRecord(kGerman, kGermanKey, kAll)));
  ASSERT_TRUE(texts);
  EXPECT_EQ(texts->special_build, "For the club");
}

TEST_F(AboutTest, LeavesTheTemplatesTextsWithoutARecord) {
  const std::vector<std::string> expected = {"QZ-7H Programmer", "", "", "", "", ""};
  EXPECT_EQ(Shown(PutProgram("none.exe")), expected);
  EXPECT_EQ(Shown(folder.File("no such file.exe")), expected);
  EXPECT_EQ(ReadVersionTexts(PutProgram("again.exe")), std::nullopt);
}

TEST_F(AboutTest, LeavesTheFieldOfAMissingValueEmpty) {
  const Values some = {{"CompanyName", "The makers"}, {"Support", "By letter"}};
  EXPECT_EQ(Shown(PutProgram("some.exe", MakeRecord(kGerman, kGermanKey, some))),
            (std::vector<std::string>{"", "", "", "The makers", "", "By letter"}));
}

TEST_F(AboutTest, LeavesTheTemplatesTextsWhereNoTranslationIsNamed) {
  EXPECT_EQ(ReadVersionTexts(PutProgram("no.exe", MakeRecord({}, kGermanKey, kAll))), std::nullopt);
}

TEST_F(AboutTest, LooksValuesUpUnderTheFirstTranslationAlone) {
  Record two = kGerman;
  two.insert(two.end(), {0x09, 0x04, 0xE4, 0x04});
  const auto texts = ReadVersionTexts(PutProgram("two.exe", MakeRecord(two, "040904E4", kAll)));
  EXPECT_EQ(texts, VersionTexts{});
}

}  // namespace
}  // namespace qz7
