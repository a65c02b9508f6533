#include "desktop/start_up.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "core/files/new_document.h"
#include "core/image/settings_map.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

// The order in which the program starts, seen from what each step finds of the ones before it.
namespace qz7 {
namespace {

// A port that remembers how many documents the main window had shown when it was opened.
class WatchedPort : public MemoryLine {
 public:
  PortResult Open(const std::string& device) override {
    opened.emplace_back(device, test_seams.titles.size());
    return MemoryLine::Open(device);
  }
  std::vector<std::pair<std::string, std::size_t>> opened;
};

class StartUp : public testing::Test {
 protected:
  StartUp() {
    document->preferences.data_folder = folder.path().string();
    document->preferences.template_path = "club.tpl";
  }

  void Start(const std::optional<NamedFile>& file = std::nullopt) {
    StartDocument(*document, port, file, {.path = defaults_path, .fallback_path = ""});
  }
  void Start(const std::string& path) { Start(NamedFile{.name = "as given", .path = path}); }

  std::string PutIntactFile(const std::string& name) {
    PutFile(folder.File(name), IntactFile("RDF"));
    return folder.File(name);
  }

  TempFolder folder;
  std::string defaults_path = folder.File("qz7.def");
  WatchedPort port;
  std::unique_ptr<Document> document = std::make_unique<Document>();
};

TEST_F(StartUp, OpensTheStoredPortBeforeThereIsADocument) {
  document->preferences.port_index = 3;
  Start();
  ASSERT_EQ(port.opened.size(), 1U);
  EXPECT_EQ(port.opened[0], (std::pair<std::string, std::size_t>{"COM3", 0}));
  EXPECT_TRUE(port.IsOpen());
  EXPECT_EQ(test_seams.titles.size(), 1U);
}

TEST_F(StartUp, OpensNoPortWhereNoneIsStored) {
  Start();
  EXPECT_TRUE(port.opened.empty());
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(StartUp, MakesTheNewDocumentBeforeTheDefaultsAreLoadedSoThatItTakesZeros) {
  PutFile(defaults_path, Bytes(799, 3));
  document->preferences.use_main_defaults_new = true;
  Start();
  EXPECT_EQ(document->image[kLock], 0);
  EXPECT_EQ(document->image[kSwitchesA], 0);
  EXPECT_EQ(document->defaults[0], 3);
  EXPECT_EQ(document->defaults[798], 3);
}

TEST_F(StartUp, OpensTheFileBeforeTheDefaultsAreLoadedSoThatItTakesZeros) {
  const std::string path = PutIntactFile("CLUB.RDF");
  const Bytes file = FileBytes(path);
  PutFile(defaults_path, Bytes(799, 3));
  Start(path);
  EXPECT_EQ(document->image[kLock], file[kLock]);
  document->preferences.use_main_defaults_open = true;
  document->defaults.fill(0);
  Start(path);
  EXPECT_EQ(document->image[kLock], 0);
  EXPECT_EQ(document->defaults[0], 3);
}

TEST_F(StartUp, WithoutADefaultsFileTakesThoseOfTheNewDocumentNotOfTheOpenedOne) {
  Bytes file = IntactFile("RDF");
  file[kLock] = 5;
  FixChecksums(file);
  PutFile(folder.File("CLUB.RDF"), file);
  Start(folder.File("CLUB.RDF"));
  EXPECT_EQ(document->image[kLock], 5);
  const auto fresh = std::make_unique<CloneImage>();
  MakeNewImage(*fresh);
  DefaultsRecord expected{};
  FillDefaultsRecord(expected, *fresh);
  EXPECT_EQ(document->defaults, expected);
}

TEST_F(StartUp, AShortDefaultsFileLeavesTheRestOfTheRecordZero) {
  PutFile(defaults_path, Bytes(10, 3));
  Start();
  DefaultsRecord expected{};
  std::fill_n(expected.begin(), 10, std::uint8_t{3});
  EXPECT_EQ(document->defaults, expected);
}

TEST_F(StartUp, LeavesTheWorkingCopyEqualToTheDocument) {
  Start();
  EXPECT_EQ(document->working_copy, document->image);
  EXPECT_FALSE(document->changed);
}

TEST_F(StartUp, OpensTheFileOfTheCommandLineAfterNew) {
  Start(PutIntactFile("CLUB.RDF"));
  EXPECT_EQ(test_seams.titles, (std::vector<std::string>{"QZ-7H Programmer - NONAME.RDF",
                                                         "QZ-7H Programmer - CLUB.RDF"}));
  EXPECT_FALSE(document->untitled);
  EXPECT_EQ(document->working_copy, document->image);
}

TEST_F(StartUp, KeepsTheNewDocumentWhereTheFileCannotBeRead) {
  const std::string path = folder.File("NONE.RDF");
  Start(path);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Cannot open file:\n" + path});
  EXPECT_EQ(document->name, "NONAME.RDF");
  EXPECT_TRUE(document->untitled);
}

TEST_F(StartUp, NamesAFileAsItWasGivenWhereItsFullPathWouldBeTooLong) {
  Start(NamedFile{.name = "my\\Club", .path = std::nullopt});
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"Cannot open file:\nmy\\Club"});
  EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
  EXPECT_EQ(document->name, "NONAME.RDF");
}

TEST_F(StartUp, AdvisesATemplateLastAndOnlyWithoutOne) {
  PutFile(defaults_path, Bytes(799, 3));
  document->preferences.template_path = "";
  int asked = 0;
  test_seams.answer = [&](Buttons) {
    ++asked;
    EXPECT_EQ(document->defaults[798], 3);
    EXPECT_EQ(document->name, "CLUB.RDF");
    return Answer::kOk;
  };
  Start(PutIntactFile("CLUB.RDF"));
  EXPECT_EQ(asked, 1);
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text,
            "One of the first things you should do\nis create a template file.\n"
            "Select Help|Contents for instructions.");
  EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
  document->preferences.template_path = "club.tpl";
  Start();
  EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace qz7
