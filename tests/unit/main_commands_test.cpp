#include <gtest/gtest.h>

#include <memory>

#include "core/files/radio_data_file.h"
#include "core/link/radio_commands.h"
#include "desktop/file_commands.h"
#include "desktop/menu_channels.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

class MainCommandsTest : public testing::Test {
 protected:
  MainCommandsTest() {
    document->preferences.data_folder = folder.path().string();
    NewDocument(*document);
    port.Open("COM1");
  }

  TempFolder folder;
  std::unique_ptr<Document> document = std::make_unique<Document>();
  MemoryLine port;
};

TEST(MenuChannels, AreTheSpecialSlotsInTheMenusOrder) {
  EXPECT_EQ(kSlotCommands, 30);
  EXPECT_EQ(ChannelOfCommand(113), -1);
  EXPECT_EQ(ChannelOfCommand(122), -10);
  EXPECT_EQ(ChannelOfCommand(123), -11);
  EXPECT_EQ(ChannelOfCommand(132), -20);
  EXPECT_EQ(ChannelOfCommand(133), -21);
  EXPECT_EQ(ChannelOfCommand(142), -30);
}

TEST_F(MainCommandsTest, AReadBecomesANewChangedDocument) {
  test_seams.files.push_back(Chosen(folder.File("old.rdf")));
  ASSERT_TRUE(SaveDocumentAs(*document));
  const bool read = ReadRadioIntoDocument(*document, port, [this] {
    EXPECT_EQ(document->working_copy, document->image);
    document->working_copy[5000] ^= 0xFF;
    return true;
  });
  EXPECT_TRUE(read);
  EXPECT_EQ(document->image[5000], document->working_copy[5000]);
  EXPECT_EQ(document->name, "NONAME.RDF");
  EXPECT_TRUE(document->changed);
  EXPECT_TRUE(document->untitled);
}

TEST_F(MainCommandsTest, AFailedReadLeavesAFreshNewDocument) {
  const CloneImage fresh = document->image;
  document->image[5000] ^= 0xFF;
  test_seams.answers = {Answer::kNo};
  EXPECT_FALSE(ReadRadioIntoDocument(*document, port, [this] {
    document->working_copy.fill(0x77);
    return false;
  }));
  EXPECT_EQ(document->image, fresh);
  EXPECT_EQ(document->name, "NONAME.RDF");
  EXPECT_FALSE(document->changed);
}

TEST_F(MainCommandsTest, CancelAtTheQuestionReadsNothing) {
  document->image[5000] ^= 0xFF;
  const CloneImage before = document->image;
  EXPECT_FALSE(ReadRadioIntoDocument(*document, port, [] {
    ADD_FAILURE();
    return true;
  }));
  EXPECT_EQ(document->image, before);
}

TEST_F(MainCommandsTest, WithoutAPortTheSetUpComesAndGivingItUpStopsTheCommand) {
  port.Close();
  const auto never = [] {
    ADD_FAILURE();
    return true;
  };
  EXPECT_FALSE(ReadRadioIntoDocument(*document, port, never));
  EXPECT_FALSE(SendDocumentToRadio(*document, port, never));
  EXPECT_EQ(test_seams.asked_ports.size(), 2U);
  EXPECT_TRUE(test_seams.messages.empty());
  test_seams.ports = {4};
  EXPECT_TRUE(SendDocumentToRadio(*document, port, [] { return true; }));
}

// A port that is there, or not; each opening is noted.
class PortThatWasLost : public MemoryLine {
 public:
  PortResult Open(const std::string& device) override {
    opened.push_back(device);
    return present ? MemoryLine::Open(device) : PortResult{PortStatus::kAbsent, 2};
  }
  bool present = true;
  std::vector<std::string> opened;
};

TEST_F(MainCommandsTest, APortThatWasLostIsOpenedAnewByTheNextExchange) {
  PortThatWasLost lost;
  lost.Lose();
  document->preferences.port_index = 3;
  EXPECT_TRUE(SendDocumentToRadio(*document, lost, [] { return true; }));
  EXPECT_EQ(lost.opened, std::vector<std::string>{"COM3"});
  EXPECT_TRUE(test_seams.asked_ports.empty());
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(MainCommandsTest, ALostPortThatIsStillAwaySaysWhyAndTheUserChooses) {
  PortThatWasLost lost;
  lost.present = false;
  lost.Lose();
  document->preferences.port_index = 3;
  EXPECT_FALSE(ReadRadioIntoDocument(*document, lost, [] { return true; }));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"COM3: Invalid or unsupported port."});
  EXPECT_EQ(test_seams.asked_ports, std::vector<int>{3});
}

TEST_F(MainCommandsTest, SendingUsesACopy) {
  document->image[100] = 'A';
  EXPECT_TRUE(SendDocumentToRadio(*document, port, [this] {
    EXPECT_EQ(document->working_copy[100], 'A');
    document->working_copy[5000] ^= 0xFF;
    return true;
  }));
  EXPECT_NE(document->image[5000], document->working_copy[5000]);
  EXPECT_FALSE(document->changed);
}

TEST_F(MainCommandsTest, ExportMarksTheDocumentAsChangedEvenWhenCancelled) {
  ExportChannels(*document);
  EXPECT_TRUE(document->changed);
  ASSERT_EQ(test_seams.save_boxes.size(), 1U);
  EXPECT_STREQ(test_seams.save_boxes[0].title, "Export Radio File");
}

TEST_F(MainCommandsTest, AnExportIsInProgressUntilItsFileIsWritten) {
  bool in_progress = false;
  test_seams.file = [&]() -> std::optional<ChosenFile> {
    in_progress = document->export_in_progress;
    return Chosen(folder.File("list.csv"));
  };
  EXPECT_FALSE(document->export_in_progress);
  ExportChannels(*document);
  EXPECT_TRUE(in_progress);
  EXPECT_FALSE(document->export_in_progress);
}

TEST_F(MainCommandsTest, ExportProposesItsOwnLastName) {
  test_seams.files = {Chosen(folder.File("mine.rdf")), Chosen(folder.File("list.csv"))};
  ASSERT_TRUE(SaveDocumentAs(*document));
  ExportChannels(*document);
  EXPECT_EQ(test_seams.save_boxes.back().initial_name, "");
  ExportChannels(*document);
  EXPECT_EQ(test_seams.save_boxes.back().initial_name, "list.csv");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"list.csv", "mine.rdf"}));
}

// The "V Ham" home record, with 180 MHz received and 145 MHz in the offset field.
constexpr std::size_t kVHamHome = 8958 + 5 * 22;
template <typename Image>
void PutHomeSlotOutsideItsBand(Image& image) {
  image[kVHamHome + 2] = 0x18;
  image[kVHamHome + 3] = 0x00;
  image[kVHamHome + 4] = 0x00;
  image[kVHamHome + 14] = 0x14;
  image[kVHamHome + 15] = 0x50;
  image[kVHamHome + 16] = 0x00;
}

TEST_F(MainCommandsTest, OpeningAFileOfAnotherVersionMovesAHomeSlotIntoItsBand) {
  Bytes file = BytesOf(document->image);
  file[3068] = 2;
  PutHomeSlotOutsideItsBand(file);
  FixChecksums(file);
  PutFile(folder.File("other.rdf"), file);
  test_seams.files.push_back(Chosen(folder.File("other.rdf")));
  OpenRadioFile(*document);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(document->image[kVHamHome + 2], 0x14);
  EXPECT_EQ(document->image[kVHamHome + 3], 0x50);
  EXPECT_EQ(document->image[kVHamHome + 4], 0x00);
  EXPECT_EQ(document->working_copy, document->image);
}

TEST_F(MainCommandsTest, OpeningAFileOfTheSameVersionMovesNothing) {
  Bytes file = BytesOf(document->image);
  PutHomeSlotOutsideItsBand(file);
  FixChecksums(file);
  PutFile(folder.File("same.rdf"), file);
  test_seams.files.push_back(Chosen(folder.File("same.rdf")));
  OpenRadioFile(*document);
  EXPECT_EQ(document->image[kVHamHome + 2], 0x18);
}

TEST_F(MainCommandsTest, ADroppedFileIsOpenedAsOneFromTheBox) {
  test_seams.files = {Chosen(folder.File("mine.rdf"))};
  ASSERT_TRUE(SaveDocumentAs(*document));
  NewDocument(*document);
  document->image[5000] ^= 0xFF;
  EXPECT_FALSE(OpenRadioFile(*document, folder.File("mine.rdf")));
  EXPECT_EQ(document->name, "NONAME.RDF");
  test_seams.answers = {Answer::kNo};
  EXPECT_TRUE(OpenRadioFile(*document, folder.File("mine.rdf")));
  EXPECT_EQ(document->name, "mine.rdf");
  EXPECT_EQ(document->path, folder.File("mine.rdf"));
  EXPECT_FALSE(document->untitled);
  EXPECT_TRUE(test_seams.open_boxes.empty());
}

TEST_F(MainCommandsTest, ADroppedFileOfAnotherVersionIsConvertedToo) {
  Bytes file = BytesOf(document->image);
  file[3068] = 2;
  PutHomeSlotOutsideItsBand(file);
  FixChecksums(file);
  PutFile(folder.File("other.rdf"), file);
  EXPECT_TRUE(OpenRadioFile(*document, folder.File("other.rdf")));
  EXPECT_EQ(document->image[kVHamHome + 2], 0x14);
}

TEST_F(MainCommandsTest, ATemplateIsTakenWithYesAlone) {
  const std::filesystem::path path = folder.File("mine.tpl");
  ASSERT_TRUE(WriteTemplateFile(document->image, path));
  Preferences& preferences = document->preferences;
  test_seams.answers = {Answer::kNo, Answer::kYes};
  EXPECT_FALSE(TakeTemplate(preferences, path));
  EXPECT_EQ(preferences.template_path, "");
  EXPECT_TRUE(TakeTemplate(preferences, path));
  EXPECT_EQ(preferences.template_path, path);
  EXPECT_EQ(test_seams.messages.back().buttons, Buttons::kYesNo);
}

TEST_F(MainCommandsTest, ATemplateOfTheJapaneseVersionIsNotAskedAbout) {
  document->image[3068] = 1;
  const std::filesystem::path path = folder.File("mine.tpl");
  ASSERT_TRUE(WriteTemplateFile(document->image, path));
  EXPECT_FALSE(TakeTemplate(document->preferences, path));
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
}

TEST_F(MainCommandsTest, RecentDocumentsAreTheFilesOpenedAndSaved) {
  const std::filesystem::path mine = folder.File("mine.rdf");
  const std::filesystem::path other = folder.File("other.rdf");
  using Paths = std::vector<std::filesystem::path>;
  EXPECT_FALSE(SaveDocument(*document));
  EXPECT_FALSE(OpenRadioFile(*document, folder.File("absent.rdf")));
  EXPECT_EQ(test_seams.recent_documents, Paths{});
  test_seams.files = {Chosen(mine), Chosen(other)};
  EXPECT_TRUE(SaveDocument(*document));
  EXPECT_TRUE(SaveDocument(*document));
  EXPECT_TRUE(SaveDocumentAs(*document));
  EXPECT_EQ(test_seams.recent_documents, (Paths{mine, mine, other}));
  EXPECT_TRUE(OpenNamedDocument(*document, mine));
  EXPECT_EQ(test_seams.recent_documents.back(), mine);
  EXPECT_TRUE(OpenRadioFile(*document, other));
  EXPECT_EQ(test_seams.recent_documents.back(), other);
  document->path = folder.path() / "absent" / "mine.rdf";
  EXPECT_FALSE(SaveDocument(*document));
  EXPECT_EQ(test_seams.recent_documents.size(), 5U);
}

TEST_F(MainCommandsTest, TheConversionRunsAfterACancelledOpenToo) {
  document->image[3068] = 2;
  PutHomeSlotOutsideItsBand(document->image);
  document->working_copy = document->image;
  OpenRadioFile(*document);
  EXPECT_EQ(document->image[kVHamHome + 2], 0x14);
}

}  // namespace
}  // namespace qz7
