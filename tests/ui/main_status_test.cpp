
#include <memory>

#include "core/files/radio_data_file.h"
#include "desktop/commands.h"
#include "desktop/main_window.h"
#include "tests/ui/feature_fixture.h"
#include "tests/ui/interchange_windows.h"
#include "tests/ui/radio_lines.h"

// The line at the lower edge of the main window follows commands and controls.
namespace qz7 {
namespace {

class MainStatus : public InterchangeWindowTest {
 protected:
  MainStatus() { HandleMessages(); }

  // The new document as a radio sends it.
  static Bytes RadioBytes() {
    const auto first = Image().begin() + kRadioBlock.offset;
    return {first, first + kRadioBlock.size};
  }

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

TEST_F(MainStatus, TellsARefusedFileFromACancel) {
  ChooseText("broken.rdf", "no document");
  Merge();
  EXPECT_EQ(Line().find("Nothing merged | "), 0U);
  ChooseText("broken.rdf", "no document");
  Command(CM_OPEN);
  EXPECT_EQ(Line().find("Nothing opened | "), 0U);
  {
    test_seams.files = {Chosen(folder.File("absent.csv"))};
    const DialogScript import(BrowseAndAccept);
    Import();
    EXPECT_EQ(Line().find("Nothing imported | "), 0U);
  }
  {
    ChooseText("empty.csv", "");
    const DialogScript import(BrowseWithHeaders);
    const DialogScript columns(AcceptDialog);
    Import();
    EXPECT_EQ(Line().find("Nothing imported | "), 0U);
  }
  const DialogScript import(CancelDialog);
  Import();
  EXPECT_EQ(Line().find("Import cancelled | "), 0U);
}

TEST_F(MainStatus, SaysWhatWasReadFromWhereWithHowManyChannels) {
  app.document.preferences.port_index = 4;
  auto& radio = UsePort<SendingRadio>();
  radio.memory = RadioBytes();
  SetProgrammed(Image(), 9, true);  // of the document before
  test_seams.answers = {Answer::kNo};
  const DialogScript script([&](HWND) { radio.Start(); });
  Command(CM_GET_DATA);
  EXPECT_EQ(Line(), "8122 bytes read from COM4 | NONAME.RDF, not saved | 1 of 240 channels");
}

TEST_F(MainStatus, SaysWhatWasSentToWhere) {
  app.document.preferences.port_index = 4;
  UsePort<ReceivingRadio>();
  const auto image = std::make_unique<CloneImage>(Image());
  ASSERT_TRUE(WriteTemplateFile(*image, folder.File("mine.tpl")));
  app.document.preferences.template_path = folder.File("mine.tpl");
  const DialogScript send(AcceptDialog);
  const DialogScript done(AcceptDialog);
  Command(CM_SEND_DATA);
  EXPECT_EQ(Line().find("8122 bytes sent to COM4 | "), 0U) << Line();
}

TEST_F(MainStatus, SaysThatNothingWasReadWhenTheReadIsCancelled) {
  UsePort<SendingRadio>();
  const DialogScript script(CancelDialog);
  Command(CM_GET_DATA);
  EXPECT_EQ(Line().find("Nothing read from the radio | "), 0U);
}

// What has no room is replaced by three points, and the pointer tells it.
TEST_F(MainStatus, IsWholeInItsTooltip) {
  ASSERT_TRUE(HandleMessagesUntil([] { return !TooltipOf(app.main_dialog, 105).empty(); }));
  app.note = std::string(80, 'n');
  RefreshStatusLine();
  HandleMessages();
  // The system shows a tip whole, but tells only its first 80 characters.
  const std::string tip = TooltipOf(app.main_dialog, ID_STATUS_LINE);
  EXPECT_GE(tip.size(), 79U);
  EXPECT_TRUE(TextOf(app.main_dialog, ID_STATUS_LINE).starts_with(tip));
  EXPECT_NE(GetWindowLongPtrA(app.status_line, GWL_STYLE) & SS_ENDELLIPSIS, 0);
}

int WidthInLine(const std::string& text) {
  const HDC device = GetDC(app.status_line);
  const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(app.status_line, WM_GETFONT, 0, 0));
  const HGDIOBJ before = SelectObject(device, font);
  SIZE size{};
  GetTextExtentPoint32A(device, text.c_str(), static_cast<int>(text.size()), &size);
  SelectObject(device, before);
  ReleaseDC(app.status_line, device);
  return size.cx;
}

TEST_F(MainStatus, HasRoomForWhereThingsAreAndForWhatWasDone) {
  RECT line;
  GetClientRect(app.status_line, &line);
  EXPECT_LE(
      WidthInLine("DOCUMENT.RDF, not saved | 240 of 240 channels | Region 0 extended | COM1 | "
                  "Template.tpl"),
      line.right);
  EXPECT_LE(
      WidthInLine("8122 bytes read from COM1 | DOCUMENT.RDF, not saved | 240 of 240 channels"),
      line.right);
  SavePicture(app.main_window, "main_status");
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
