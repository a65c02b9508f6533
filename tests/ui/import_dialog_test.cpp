#include "desktop/interchange/import_dialog.h"

#include "tests/ui/interchange_windows.h"

namespace qz7 {
namespace {

class ImportDialogTest : public InterchangeWindowTest {
 protected:
  static ImportOptions& Options() { return app.import_session.options; }
};

TEST_F(ImportDialogTest, OpensWithTheUsualSeparators) {
  const DialogScript script([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_IMPORT_FILE), "");
    EXPECT_FALSE(IsChecked(dialog, ID_FIXED_LENGTH));
    EXPECT_TRUE(IsChecked(dialog, ID_DELIMITED));
    EXPECT_EQ(TextOf(dialog, ID_FIELD_SEPARATOR), ",");
    EXPECT_EQ(TextOf(dialog, ID_TEXT_SEPARATOR), "\"");
    EXPECT_FALSE(IsChecked(dialog, ID_HEADERS));
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_IMPORT_FILE, EM_GETLIMITTEXT, 0, 0), 128);
    CancelDialog(dialog);
  });
  EXPECT_FALSE(ShowImportDialog(app.import_session));
}

TEST_F(ImportDialogTest, BrowseStartsInTheStoredFolderAndStoresTheNewOne) {
  test_seams.profile["ImportDir"] = "C:\\lists\\";
  test_seams.files.push_back(Chosen("D:\\trips\\journey.tpe"));
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_BROWSE_IMPORT);
    EXPECT_EQ(TextOf(dialog, ID_IMPORT_FILE), "D:\\trips\\journey.tpe");
    SavePicture(dialog, "import");
    AcceptDialog(dialog);
  });
  EXPECT_TRUE(ShowImportDialog(app.import_session));
  ASSERT_EQ(test_seams.open_boxes.size(), 1U);
  EXPECT_STREQ(test_seams.open_boxes[0].title, "Open File for Import");
  EXPECT_EQ(test_seams.open_boxes[0].folder, "C:\\lists\\");
  EXPECT_EQ(test_seams.open_boxes[0].filters.size(), 5U);
  EXPECT_EQ(test_seams.profile["ImportDir"], "D:\\trips\\");
  EXPECT_EQ(Options().path, "D:\\trips\\journey.tpe");
  EXPECT_EQ(Options().title, "journey.tpe");
}

TEST_F(ImportDialogTest, APathWithoutAFolderStoresNone) {
  test_seams.files.push_back(Chosen("journey.tpe"));
  const DialogScript script(BrowseAndAccept);
  EXPECT_TRUE(ShowImportDialog(app.import_session));
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(ImportDialogTest, ACancelledBrowseKeepsTheFile) {
  test_seams.files.push_back(Chosen("D:\\trips\\journey.tpe"));
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_BROWSE_IMPORT);
    Press(dialog, ID_BROWSE_IMPORT);
    EXPECT_EQ(TextOf(dialog, ID_IMPORT_FILE), "D:\\trips\\journey.tpe");
    AcceptDialog(dialog);
  });
  EXPECT_TRUE(ShowImportDialog(app.import_session));
  EXPECT_EQ(Options().path, "D:\\trips\\journey.tpe");
}

TEST_F(ImportDialogTest, OkTakesTheOptions) {
  const DialogScript script([](HWND dialog) {
    Type(dialog, ID_FIELD_SEPARATOR, ";|");
    EXPECT_EQ(TextOf(dialog, ID_FIELD_SEPARATOR), ";");
    Type(dialog, ID_TEXT_SEPARATOR, "'");
    Press(dialog, ID_FIXED_LENGTH);
    Press(dialog, ID_HEADERS);
    AcceptDialog(dialog);
  });
  EXPECT_TRUE(ShowImportDialog(app.import_session));
  EXPECT_EQ(Options().field_separator, ';');
  EXPECT_EQ(Options().text_separator, '\'');
  EXPECT_FALSE(Options().delimited);
  EXPECT_TRUE(Options().headers);
}

TEST_F(ImportDialogTest, TheTabButtonPutsATabIn) {
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_TAB_SEPARATOR);
    EXPECT_EQ(TextOf(dialog, ID_FIELD_SEPARATOR), "\t");
    SavePicture(dialog, "import_tab");
    AcceptDialog(dialog);
  });
  EXPECT_TRUE(ShowImportDialog(app.import_session));
  EXPECT_EQ(Options().field_separator, '\t');
}

TEST_F(ImportDialogTest, AnEmptySeparatorIsNone) {
  const DialogScript script([](HWND dialog) {
    Type(dialog, ID_FIELD_SEPARATOR, "");
    Type(dialog, ID_TEXT_SEPARATOR, "");
    AcceptDialog(dialog);
  });
  EXPECT_TRUE(ShowImportDialog(app.import_session));
  EXPECT_EQ(Options().field_separator, '\0');
  EXPECT_EQ(Options().text_separator, '\0');
}

TEST_F(ImportDialogTest, HelpDoesNothingAndClosingCancels) {
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_HELP);
    EXPECT_TRUE(IsWindowVisible(dialog));
    SendMessageA(dialog, WM_CLOSE, 0, 0);
  });
  EXPECT_FALSE(ShowImportDialog(app.import_session));
}

TEST_F(ImportDialogTest, OkWithoutAFileSaysThatItCannotBeOpened) {
  const CloneImage before = Image();
  const DialogScript script(AcceptDialog);
  Import();
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"Error opening file: "});
  EXPECT_EQ(test_seams.messages[0].caption, "File error");
  EXPECT_EQ(Image(), before);
}

TEST_F(ImportDialogTest, OkWithoutAFileNamesTheLastOneChosen) {
  test_seams.files.push_back(Chosen(folder.File("missing.csv")));
  {
    const DialogScript script(BrowseAndAccept);
    Import();
  }
  const DialogScript script([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_IMPORT_FILE), "");
    AcceptDialog(dialog);
  });
  Import();
  EXPECT_EQ(ShownTexts(), (std::vector<std::string>{"Error opening file: missing.csv",
                                                    "Error opening file: missing.csv"}));
}

TEST_F(ImportDialogTest, ImportCollectsTheMainDialogFirst) {
  Choose(app.main_dialog, ID_LOCK, 3);
  const DialogScript script(CancelDialog);
  Import();
  EXPECT_EQ(Image()[10'200], 3);
  EXPECT_TRUE(app.document.changed);
}

}  // namespace
}  // namespace qz7
