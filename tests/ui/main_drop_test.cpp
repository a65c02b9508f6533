#include <memory>

#include "core/editors/main_fields.h"
#include "core/files/file_output.h"
#include "core/files/paths.h"
#include "core/files/radio_data_file.h"
#include "tests/ui/dropping.h"
#include "tests/ui/interchange_windows.h"

// Files that are dropped on the main window.
namespace qz7 {
namespace {

using Paths = std::vector<std::filesystem::path>;

class MainDrop : public InterchangeWindowTest {
 protected:
  MainDrop() { SetFocus(GetDlgItem(app.main_dialog, ID_BELL)); }
  // Whatever a drop did, the keyboard is where it was.
  ~MainDrop() override { EXPECT_EQ(GetFocus(), GetDlgItem(app.main_dialog, ID_BELL)); }

  static void DropFiles(const Paths& files) {
    PostDrop(MakeDrop(files));
    HandleMessages();
  }

  // A document with this comment.
  std::filesystem::path PutRadioFile(const std::filesystem::path& name,
                                     const std::string& comment) const {
    const auto image = std::make_unique<CloneImage>(app.document.image);
    WriteFileComment(*image, comment);
    const std::filesystem::path path = folder.path() / name;
    EXPECT_TRUE(WriteRadioDataFile(*image, path));
    return path;
  }
  std::filesystem::path PutTemplate(const std::string& name) const {
    const auto image = std::make_unique<CloneImage>(app.document.image);
    EXPECT_TRUE(WriteTemplateFile(*image, folder.File(name)));
    return folder.File(name);
  }
  std::filesystem::path PutList(const std::string& name) const {
    const std::string_view text = "RX Frequency,Name\n146.52,CALL\n146.54,OTHER\n";
    PutFile(folder.File(name), Bytes(text.begin(), text.end()));
    return folder.File(name);
  }
};

TEST_F(MainDrop, OfARadioFileOpensIt) {
  const auto path = PutRadioFile("mine.rdf", "dropped");
  DropFiles({path});
  EXPECT_EQ(app.document.path, path);
  EXPECT_EQ(TextOf(app.main_dialog, ID_FILE_COMMENT), "dropped");
  EXPECT_EQ(CaptionOf(app.main_window), "QZ-7H Programmer - mine.rdf");
  EXPECT_EQ(app.document.last_file_name, "mine.rdf");
  EXPECT_EQ(app.note, "");
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{});
}

TEST_F(MainDrop, OfARadioFileAsksAboutChangesFirst) {
  const auto path = PutRadioFile("mine.rdf", "dropped");
  Type(app.main_dialog, ID_FILE_COMMENT, "changed");
  SetFocus(GetDlgItem(app.main_dialog, ID_BELL));
  DropFiles({path});
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"NONAME.RDF has been changed.\nSave file before closing?"});
  EXPECT_EQ(app.document.name, "NONAME.RDF");
  EXPECT_EQ(app.note, "Nothing opened");
  test_seams.answers = {Answer::kNo};
  DropFiles({path});
  EXPECT_EQ(app.document.name, "mine.rdf");
}

TEST_F(MainDrop, OfAFileThatCannotBeReadLeavesTheDocument) {
  const CloneImage before = Image();
  DropFiles({folder.File("absent.rdf")});
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"Cannot open file:\n" + folder.File("absent.rdf")});
  EXPECT_EQ(Image(), before);
  EXPECT_EQ(app.note, "Nothing opened");
}

TEST_F(MainDrop, TakesNamesInAnyLettersAndPathsOfAnyLength) {
  const auto named = PutRadioFile(u8"Žluťoučký кот 日本.RDF", "cat");
  DropFiles({named});
  EXPECT_EQ(app.document.path, named);

  Paths deep = {folder.path()};
  while (deep.back().native().size() <= MAX_PATH) {
    deep.push_back(InFolder(deep.back(), std::wstring(60, L'd')));
    ASSERT_TRUE(CreateDirectoryW(SystemPath(deep.back()).c_str(), nullptr));
  }
  const auto far_down = PutRadioFile(InFolder(deep.back(), "mine.rdf"), "far down");
  DropFiles({far_down});
  EXPECT_EQ(app.document.path, far_down);
  EXPECT_EQ(TextOf(app.main_dialog, ID_FILE_COMMENT), "far down");
  EXPECT_TRUE(DeleteFileW(SystemPath(far_down).c_str()));
  for (auto path = deep.rbegin(); path != deep.rend() - 1; ++path) {
    EXPECT_TRUE(RemoveDirectoryW(SystemPath(*path).c_str()));
  }
}

TEST_F(MainDrop, OfAListStartsTheImportWithIt) {
  const auto path = PutList("list.csv");
  const DialogScript import([&](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_IMPORT_FILE), path.string());
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
    Press(dialog, ID_HEADERS);
    Press(dialog, IDOK);
  });
  const DialogScript columns([](HWND dialog) {
    EXPECT_EQ(CaptionOf(dialog), "Import Data - list.csv");
    Press(dialog, IDOK);
  });
  const DialogScript selection([](HWND dialog) {
    Press(dialog, ID_SELECT_ALL);
    Type(dialog, ID_START_MEMORY, "7");
    Press(dialog, IDOK);
  });
  DropFiles({path});
  EXPECT_EQ(app.note, "2 channels imported to 7-8, not saved");
  EXPECT_TRUE(IsProgrammed(Image(), 8));
  EXPECT_EQ(test_seams.profile["ImportDir"], folder.path().string() + "\\");
  EXPECT_TRUE(test_seams.open_boxes.empty());
}

TEST_F(MainDrop, OfAListCollectsTheControlsAsTheCommandDoes) {
  Choose(app.main_dialog, ID_BELL, 3);
  const DialogScript import(CancelDialog);
  DropFiles({PutList("list.txt")});
  EXPECT_TRUE(app.document.changed);
  EXPECT_EQ(app.note, "Import cancelled");
}

TEST_F(MainDrop, OfAListThatIsGoneImportsNothingWhichIsNoCancel) {
  const DialogScript import(AcceptDialog);
  DropFiles({folder.File("absent.rd")});
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Error opening file: absent.rd"});
  EXPECT_EQ(app.note, "Nothing imported");
}

TEST_F(MainDrop, OfATemplateAsksBeforeItIsTaken) {
  const auto path = PutTemplate("mine.TPL");
  const std::string question = "Use this template when data is sent?\n" + path.string();
  test_seams.answers = {Answer::kNo, Answer::kYes};
  DropFiles({path});
  EXPECT_EQ(app.document.preferences.template_path, "");
  EXPECT_EQ(app.note, "mine.TPL did not become the template");
  DropFiles({path});
  EXPECT_EQ(ShownTexts(), (std::vector<std::string>{question, question}));
  EXPECT_EQ(app.document.preferences.template_path, path);
  EXPECT_EQ(test_seams.profile["TemplateFile"], path.string());
  EXPECT_EQ(app.note, "mine.TPL is the template");
}

TEST_F(MainDrop, OfABadTemplateIsRefusedWithoutAQuestion) {
  const auto path = PutRadioFile("renamed.tpl", "no template");
  DropFiles({path});
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Not a template file:\n" + path.string()});
  EXPECT_EQ(app.document.preferences.template_path, "");
}

TEST_F(MainDrop, OfAnythingElseSaysThatItIsNothing) {
  PutFile(folder.File("photo.jpg"), Bytes{1, 2, 3});
  DropFiles({folder.File("photo.jpg")});
  EXPECT_EQ(app.note, "photo.jpg is no radio file, list or template");
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{});
}

TEST_F(MainDrop, OfSeveralFilesTakesTheFirst) {
  const auto first = PutRadioFile("first.rdf", "first");
  DropFiles({first, PutRadioFile("second.rdf", "second"), PutList("list.csv")});
  EXPECT_EQ(app.document.path, first);
  EXPECT_EQ(app.note, "the first of 3 files was taken");
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{});
}

TEST_F(MainDrop, DoesNothingWhileADialogIsOpen) {
  const auto path = PutRadioFile("mine.rdf", "dropped");
  const DialogScript script([&](HWND dialog) {
    DropFiles({path});
    DropFiles({PutList("list.csv")});
    EXPECT_EQ(DialogOwner(), dialog);
    Press(dialog, IDCANCEL);
  });
  Command(CM_PREFERENCES);
  HandleMessages();
  EXPECT_EQ(app.document.name, "NONAME.RDF");
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{});
}

TEST_F(MainDrop, GivesWhatWasDroppedBackToTheSystem) {
  const HGLOBAL taken = MakeDrop({folder.File("photo.jpg")});
  PostDrop(taken);
  HandleMessages();
  EXPECT_EQ(GlobalFlags(taken), static_cast<UINT>(GMEM_INVALID_HANDLE));
  EnableWindow(app.main_window, FALSE);
  const HGLOBAL refused = MakeDrop({folder.File("photo.jpg")});
  PostDrop(refused);
  HandleMessages();
  EnableWindow(app.main_window, TRUE);
  EXPECT_EQ(GlobalFlags(refused), static_cast<UINT>(GMEM_INVALID_HANDLE));
}

TEST_F(MainDrop, IsAskedForByTheWindow) {
  EXPECT_NE(GetWindowLongPtrA(app.main_window, GWL_EXSTYLE) & WS_EX_ACCEPTFILES, 0);
}

}  // namespace
}  // namespace qz7
