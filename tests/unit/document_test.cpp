#include "core/files/document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "core/files/paths.h"
#include "core/image/band_plan.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

using Writes = std::vector<std::pair<std::string, std::string>>;

class DocumentTest : public testing::Test {
 protected:
  DocumentTest() {
    document->preferences.data_folder = folder.path().string();
    NewDocument(*document);
  }

  std::string PutIntactFile(const std::string& name) {
    const std::string path = folder.File(name);
    PutFile(path, IntactFile("RDF"));
    return path;
  }

  void OpenFileNamed(const std::string& name) {
    test_seams.files.push_back(Chosen(PutIntactFile(name)));
    ASSERT_TRUE(OpenDocument(*document));
  }

  // What the user types into the main dialog, once.
  void ChangeComment(char letter) {
    test_seams.controls = [letter](CloneImage& image) {
      image[100] = static_cast<std::uint8_t>(letter);
    };
  }

  // The system's "\\" separates folder and name in a path that the program makes: elsewhere it is a
  // part of the name, and this keeps such a file inside the test's own folder.
  void UseFolderInside() {
    document->preferences.data_folder = folder.File("data");
    std::filesystem::create_directory(document->preferences.data_folder);
  }

  TempFolder folder;
  std::unique_ptr<Document> document = std::make_unique<Document>();
};

TEST_F(DocumentTest, NewIsUntitledAndUnchangedAndNamedInTheTitle) {
  EXPECT_EQ(document->name, "NONAME.RDF");
  EXPECT_EQ(document->path, folder.path().string() + "\\NONAME.RDF");
  EXPECT_TRUE(document->untitled);
  EXPECT_FALSE(document->changed);
  EXPECT_EQ(test_seams.titles.back(), "QZ-7H Programmer - NONAME.RDF");
  EXPECT_EQ(document->image, document->working_copy);
  EXPECT_EQ(test_seams.loaded_images.back(), document->image);
}

TEST_F(DocumentTest, NewAsksNothingWithAndWithoutTheFlag) {
  document->preferences.use_dont_ask_defaults = false;
  NewDocument(*document);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(DocumentTest, SaveOfANewDocumentOpensTheSaveAsBox) {
  test_seams.files.push_back(Chosen(folder.File("mine.rdf")));
  EXPECT_TRUE(SaveDocument(*document));
  ASSERT_EQ(test_seams.save_boxes.size(), 1U);
  const FileBox& box = test_seams.save_boxes[0];
  EXPECT_STREQ(box.title, "Save Radio File");
  EXPECT_STREQ(box.default_extension, "rdf");
  EXPECT_EQ(box.folder, folder.path().string());
  EXPECT_EQ(box.initial_name, "");
  ASSERT_EQ(box.filters.size(), 2U);
  EXPECT_STREQ(box.filters[0].text, "Radio Files (*.rdf)");
  EXPECT_STREQ(box.filters[0].pattern, "*.rdf");
  EXPECT_STREQ(box.filters[1].text, "All files (*.*)");
  EXPECT_STREQ(box.filters[1].pattern, "*.*");
  EXPECT_FALSE(document->untitled);
  EXPECT_EQ(document->name, "mine.rdf");
  EXPECT_EQ(document->path, folder.File("mine.rdf"));
  EXPECT_EQ(test_seams.titles.back(), "QZ-7H Programmer - mine.rdf");
  EXPECT_EQ(FirstDifference(FileBytes(folder.File("mine.rdf")), document->image), -1);
}

TEST_F(DocumentTest, ASavedFileHasBothChecksumsRight) {
  test_seams.files.push_back(Chosen(folder.File("mine.rdf")));
  ASSERT_TRUE(SaveDocumentAs(*document));
  const Bytes file = FileBytes(folder.File("mine.rdf"));
  ASSERT_EQ(file.size(), 21'282U);
  EXPECT_EQ(file[80], RightBlockChecksum(file.data()));
  EXPECT_EQ(file[81], RightFileChecksum(file.data()));
}

TEST_F(DocumentTest, ACancelledSaveAsLeavesTheChecksumsUpdatedInMemory) {
  ASSERT_EQ(document->image[80], 0);
  EXPECT_FALSE(SaveDocumentAs(*document));
  EXPECT_EQ(document->image[80], RightBlockChecksum(document->image.data()));
  EXPECT_EQ(document->image[81], RightFileChecksum(document->image.data()));
  EXPECT_TRUE(document->untitled);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(DocumentTest, ASaveAsThatCannotBeWrittenShowsWhyAndChangesNothing) {
  const std::string path = folder.File("no such folder") + "/mine.rdf";
  test_seams.files.push_back(Chosen(path));
  EXPECT_FALSE(SaveDocumentAs(*document));
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "Cannot create file:\n" + path);
  EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
  EXPECT_TRUE(document->untitled);
  EXPECT_EQ(document->name, "NONAME.RDF");
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(DocumentTest, SaveAsProposesTheNameOfTheFileLastOpenedOrSaved) {
  OpenFileNamed("first.rdf");
  NewDocument(*document);
  EXPECT_FALSE(SaveDocumentAs(*document));
  EXPECT_EQ(test_seams.save_boxes.back().initial_name, "first.rdf");
  test_seams.files.push_back(Chosen(folder.File("second.rdf")));
  EXPECT_TRUE(SaveDocumentAs(*document));
  EXPECT_FALSE(SaveDocumentAs(*document));
  EXPECT_EQ(test_seams.save_boxes.back().initial_name, "second.rdf");
}

TEST_F(DocumentTest, OpenTakesTheFileOver) {
  OpenFileNamed("club.rdf");
  ASSERT_EQ(test_seams.open_boxes.size(), 1U);
  EXPECT_STREQ(test_seams.open_boxes[0].title, "Open Radio File");
  EXPECT_EQ(test_seams.open_boxes[0].initial_name, "");
  EXPECT_EQ(document->name, "club.rdf");
  EXPECT_EQ(document->path, folder.File("club.rdf"));
  EXPECT_FALSE(document->untitled);
  EXPECT_FALSE(document->changed);
  EXPECT_EQ(document->image[3062], static_cast<std::uint8_t>(3062 * 37 + 3062 / 256));
  EXPECT_EQ(document->image, document->working_copy);
  EXPECT_EQ(test_seams.loaded_images.back(), document->image);
  EXPECT_EQ(test_seams.titles.back(), "QZ-7H Programmer - club.rdf");
}

TEST_F(DocumentTest, ACancelledOpenLeavesTheDocument) {
  const CloneImage before = document->image;
  EXPECT_FALSE(OpenDocument(*document));
  EXPECT_EQ(document->image, before);
  EXPECT_EQ(document->name, "NONAME.RDF");
  EXPECT_TRUE(document->untitled);
}

TEST_F(DocumentTest, AFileThatIsRefusedLeavesTheDocument) {
  PutFile(folder.File("bad.rdf"), Bytes(21'282, 0x41));
  const CloneImage before = document->image;
  test_seams.files.push_back(Chosen(folder.File("bad.rdf")));
  EXPECT_FALSE(OpenDocument(*document));
  EXPECT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(document->image, before);
  EXPECT_EQ(document->name, "NONAME.RDF");
}

TEST_F(DocumentTest, OpeningFromAnotherFolderChangesTheDataFolder) {
  document->preferences.data_folder = "elsewhere";
  OpenFileNamed("club.rdf");
  EXPECT_EQ(document->preferences.data_folder, folder.path().string());
  EXPECT_EQ(test_seams.profile_writes, (Writes{{"DataDir", folder.path().string()}}));
}

TEST_F(DocumentTest, TheDataFolderInOtherLetterCaseIsNotWritten) {
  std::string shouted = folder.path().string();
  std::transform(shouted.begin(), shouted.end(), shouted.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  ASSERT_NE(shouted, folder.path().string());
  document->preferences.data_folder = shouted;
  OpenFileNamed("club.rdf");
  EXPECT_EQ(document->preferences.data_folder, folder.path().string());
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(DocumentTest, ABoxThatTellsNoFolderLeavesTheDataFolder) {
  ChosenFile file = Chosen(PutIntactFile("club.rdf"));
  file.name_offset = 0;
  test_seams.files.push_back(file);
  document->preferences.data_folder = "elsewhere";
  EXPECT_TRUE(OpenDocument(*document));
  EXPECT_EQ(document->preferences.data_folder, "elsewhere");
}

TEST_F(DocumentTest, AnUnchangedDocumentIsGivenUpWithoutAQuestion) {
  EXPECT_TRUE(AskSaveChanges(*document));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(DocumentTest, AChangedControlMakesTheQuestionCome) {
  ChangeComment('A');
  EXPECT_FALSE(AskSaveChanges(*document));
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "NONAME.RDF has been changed.\nSave file before closing?");
  EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kYesNoCancel);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kQuestion);
}

TEST_F(DocumentTest, NoDiscardsTheChangesAndGoesOn) {
  ChangeComment('A');
  test_seams.answers = {Answer::kNo};
  test_seams.files.push_back(Chosen(PutIntactFile("club.rdf")));
  EXPECT_TRUE(OpenDocument(*document));
  EXPECT_EQ(document->name, "club.rdf");
  EXPECT_TRUE(test_seams.save_boxes.empty());
}

TEST_F(DocumentTest, CancelAtTheQuestionStopsTheCommand) {
  ChangeComment('A');
  test_seams.answers = {Answer::kCancel};
  test_seams.files.push_back(Chosen(PutIntactFile("club.rdf")));
  EXPECT_FALSE(OpenDocument(*document));
  EXPECT_TRUE(test_seams.open_boxes.empty());
  EXPECT_EQ(document->name, "NONAME.RDF");
}

TEST_F(DocumentTest, YesSavesFirstAndACancelledSaveStopsTheCommand) {
  ChangeComment('A');
  test_seams.answers = {Answer::kYes, Answer::kYes};
  EXPECT_FALSE(AskSaveChanges(*document));
  EXPECT_EQ(test_seams.save_boxes.size(), 1U);
  test_seams.files.push_back(Chosen(folder.File("mine.rdf")));
  EXPECT_TRUE(AskSaveChanges(*document));
  EXPECT_EQ(FileBytes(folder.File("mine.rdf")).at(100), 'A');
}

TEST_F(DocumentTest, SaveWritesToTheDocumentsOwnPathWithoutABox) {
  OpenFileNamed("club.rdf");
  ChangeComment('Z');
  EXPECT_TRUE(SaveDocument(*document));
  EXPECT_TRUE(test_seams.save_boxes.empty());
  EXPECT_EQ(FileBytes(folder.File("club.rdf")).at(100), 'Z');
  EXPECT_FALSE(document->changed);
}

TEST_F(DocumentTest, TheQuestionComesAgainAfterASave) {
  OpenFileNamed("club.rdf");
  ChangeComment('Z');
  ASSERT_TRUE(SaveDocument(*document));
  EXPECT_FALSE(AskSaveChanges(*document));
  EXPECT_EQ(test_seams.messages.size(), 1U);
}

TEST_F(DocumentTest, NoQuestionComesAfterASaveAs) {
  ChangeComment('Z');
  test_seams.files.push_back(Chosen(folder.File("mine.rdf")));
  ASSERT_TRUE(SaveDocumentAs(*document));
  EXPECT_TRUE(AskSaveChanges(*document));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(DocumentTest, CollectingNeverClearsTheChangedFlag) {
  document->changed = true;
  EXPECT_FALSE(CollectMainDialog(*document));
  EXPECT_TRUE(document->changed);
}

TEST_F(DocumentTest, EitherMainFlagAppliesTheDefaultsWhateverMadeTheDocumentCurrent) {
  document->defaults[583] = 2;  // image byte 10201
  document->preferences.use_main_defaults_open = true;
  NewDocument(*document);
  EXPECT_EQ(document->image[10'201], 2);
  document->preferences.use_main_defaults_open = false;
  document->preferences.use_main_defaults_new = true;
  OpenFileNamed("club.rdf");
  EXPECT_EQ(document->image[10'201], 2);
  EXPECT_EQ(document->working_copy, document->image);
}

TEST_F(DocumentTest, WithoutAMainFlagTheDefaultsStayAway) {
  document->defaults[583] = 2;
  NewDocument(*document);
  EXPECT_EQ(document->image[10'201], 0);
}

TEST_F(DocumentTest, SaveAsWithTheFlagSetLeavesTheDefaultsInMemoryAndTheUsersValuesInTheFile) {
  document->image[10'201] = 1;
  document->defaults[583] = 2;
  document->preferences.use_main_defaults_new = true;
  test_seams.files.push_back(Chosen(folder.File("mine.rdf")));
  ASSERT_TRUE(SaveDocumentAs(*document));
  EXPECT_EQ(FileBytes(folder.File("mine.rdf")).at(10'201), 1);
  EXPECT_EQ(document->image[10'201], 2);
}

TEST_F(DocumentTest, TheFileOfTheCommandLineIsOpenedLikeAnyOther) {
  const std::string path = PutIntactFile("club.rdf");
  EXPECT_TRUE(OpenNamedDocument(*document, path));
  EXPECT_EQ(document->name, "club.rdf");
  EXPECT_EQ(document->path, path);
  EXPECT_FALSE(document->untitled);
  EXPECT_TRUE(test_seams.open_boxes.empty());
}

TEST_F(DocumentTest, AMissingFileOfTheCommandLineLeavesTheNewDocument) {
  EXPECT_FALSE(OpenNamedDocument(*document, folder.File("none.rdf")));
  EXPECT_EQ(document->name, "NONAME.RDF");
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"Cannot open file:\n" + folder.File("none.rdf")});
}

TEST_F(DocumentTest, ATemplateIsTheImageJustReadUnderTheOtherMagic) {
  UseFolderInside();
  const CloneImage new_document = document->image;
  document->working_copy[9000] = 0x5A;
  EXPECT_TRUE(CreateTemplate(*document, "Template"));
  const Bytes file = FileBytes(document->preferences.template_path);
  ASSERT_EQ(file.size(), 21'282U);
  EXPECT_EQ(file[0], 'T');
  EXPECT_EQ(file[9000], 0x5A);
  EXPECT_EQ(file[81], RightFileChecksum(file.data()));
  EXPECT_EQ(document->working_copy[0], 'R');
  EXPECT_EQ(document->image, new_document);
  EXPECT_TRUE(document->changed);
}

TEST_F(DocumentTest, ATemplatesNameIsCutAtTheDotAndThenAtTheBlank) {
  UseFolderInside();
  EXPECT_TRUE(CreateTemplate(*document, "my radio.x"));
  EXPECT_EQ(document->preferences.template_path,
            InFolder(document->preferences.data_folder, "my.tpl"));
  EXPECT_EQ(FileBytes(document->preferences.template_path).size(), 21'282U);
}

TEST_F(DocumentTest, ATemplatesNameThatIsCutToNothingGivesTheBareExtension) {
  UseFolderInside();
  EXPECT_TRUE(CreateTemplate(*document, " x"));
  EXPECT_EQ(document->preferences.template_path,
            InFolder(document->preferences.data_folder, ".tpl"));
  EXPECT_EQ(FileBytes(document->preferences.template_path).size(), 21'282U);
}

TEST_F(DocumentTest, AfterATemplateSaveAsksForAName) {
  OpenFileNamed("club.rdf");
  UseFolderInside();
  EXPECT_TRUE(CreateTemplate(*document, "mine"));
  EXPECT_FALSE(SaveDocument(*document));
  EXPECT_EQ(test_seams.save_boxes.size(), 1U);
}

TEST_F(DocumentTest, ATemplateOfVersion2LiftsTheFrequencyBlocks) {
  UseFolderInside();
  for (const int version : {0, 1, 3}) {
    document->working_copy[3068] = static_cast<std::uint8_t>(version);
    EXPECT_TRUE(CreateTemplate(*document, "mine"));
    EXPECT_FALSE(document->region.extended_version) << version;
  }
  document->working_copy[3068] = 2;
  EXPECT_TRUE(CreateTemplate(*document, "mine"));
  EXPECT_TRUE(document->region.extended_version);
}

TEST_F(DocumentTest, ATemplateThatCannotBeWrittenIsConfiguredAllTheSame) {
  document->preferences.data_folder = folder.File("none/none");
  document->working_copy[3068] = 2;
  EXPECT_FALSE(CreateTemplate(*document, "mine"));
  EXPECT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(NamePart(document->preferences.template_path), "mine.tpl");
  EXPECT_FALSE(document->changed);
  EXPECT_FALSE(document->region.extended_version);
  EXPECT_TRUE(test_seams.profile_writes.empty());
  EXPECT_EQ(document->working_copy[0], 'R');
}

TEST_F(DocumentTest, TheImageOfTheRadioBecomesTheChangedDocumentsAndIsShown) {
  document->working_copy[5000] ^= 0xFF;
  TakeRadioImage(*document);
  EXPECT_TRUE(document->changed);
  EXPECT_EQ(document->image, document->working_copy);
  EXPECT_EQ(test_seams.loaded_images.back(), document->image);
}

}  // namespace
}  // namespace qz7
