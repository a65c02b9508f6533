
#include "desktop/commands.h"
#include "tests/ui/interchange_windows.h"

// The line at the lower edge of the main window follows commands and controls.
namespace qz7 {
namespace {

class MainStatus : public InterchangeWindowTest {
 protected:
  MainStatus() { HandleMessages(); }

  // What the line says, up to the first part that no command changes here.
  static std::string Line() {
    HandleMessages();
    char text[300] = "";
    GetWindowTextA(app.status_line, text, sizeof text);
    const std::string line = text;
    return line.substr(0, line.find(" | Region"));
  }
  static std::string Count() {
    const std::string line = Line();
    return line.substr(line.rfind(" | "));
  }
};

TEST_F(MainStatus, ShowsTheDocumentFromTheStart) {
  EXPECT_EQ(Line(), "NONAME.RDF, new" + Count());
  EXPECT_NE(Count().find(" of 240 channels"), std::string::npos);
}

TEST_F(MainStatus, FollowsTheControlsWithoutCollectingThem) {
  const CloneImage before = Image();
  Choose(app.main_dialog, ID_BELL, 3);
  EXPECT_EQ(Line(), "NONAME.RDF, not saved" + Count());
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
  LoadMainDialog(before);
  Type(app.main_dialog, ID_FILE_COMMENT, "x");
  EXPECT_EQ(Line(), "NONAME.RDF, not saved" + Count());
  Type(app.main_dialog, ID_FILE_COMMENT, "");
  EXPECT_EQ(Line(), "NONAME.RDF, new" + Count());
}

TEST_F(MainStatus, SaysThatADocumentIsSaved) {
  Choose(app.main_dialog, ID_BELL, 3);
  Command(CM_SAVE);
  EXPECT_EQ(Line(), "Nothing saved | NONAME.RDF, not saved" + Count());
  test_seams.files = {Chosen(folder.File("mine.rdf"))};
  Command(CM_SAVE);
  EXPECT_EQ(Line(), "mine.rdf, saved" + Count());
}

TEST_F(MainStatus, SaysWhatWasExported) {
  Command(CM_EXPORT);
  EXPECT_EQ(Line().find("Nothing exported | "), 0U);
  test_seams.files = {Chosen(folder.File("list.csv"))};
  Command(CM_EXPORT);
  EXPECT_EQ(Line().find("Exported to list.csv | "), 0U);
}

TEST_F(MainStatus, SaysThatAMergeWasCancelledUntilTheNextCommand) {
  Merge();
  EXPECT_EQ(Line(), "Merge cancelled | NONAME.RDF, new" + Count());
  const DialogScript script([](HWND dialog) { Press(dialog, IDCANCEL); });
  Command(CM_PREFERENCES);
  EXPECT_EQ(Line(), "NONAME.RDF, new" + Count());
}

TEST_F(MainStatus, SaysWhatWasImportedAndThatItIsNotSaved) {
  ChooseText("list.csv", "RX Frequency,Name\n146.52,CALL\n146.54,OTHER\n");
  const DialogScript import(BrowseWithHeaders);
  const DialogScript columns(AcceptDialog);
  const DialogScript selection([](HWND dialog) {
    Press(dialog, ID_SELECT_ALL);
    Type(dialog, ID_START_MEMORY, "7");
    Press(dialog, IDOK);
  });
  Import();
  EXPECT_EQ(Line(), "2 channels imported to 7-8, not saved | NONAME.RDF, not saved" + Count());
  EXPECT_FALSE(app.document.changed);
}

TEST_F(MainStatus, SaysThatNothingWasReadOrSentWithoutAPort) {
  app.port->Close();
  Command(CM_GET_DATA);
  EXPECT_EQ(Line().find("Nothing read from the radio | "), 0U);
  Command(CM_SEND_DATA);
  EXPECT_EQ(Line().find("Nothing sent to the radio | "), 0U);
}

}  // namespace
}  // namespace qz7
