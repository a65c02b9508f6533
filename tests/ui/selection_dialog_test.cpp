#include "desktop/interchange/selection_dialog.h"

#include "desktop/toolkit/dialog_support.h"
#include "tests/ui/interchange_windows.h"
#include "tests/unit/interchange_fixture.h"

namespace qz7 {
namespace {

using namespace interchange_fixture;

class SelectionDialogTest : public InterchangeWindowTest {
 protected:
  // Runs the import of a file with a header line up to the selection.
  void ImportText(std::string_view text, const std::function<void(HWND)>& script) {
    ChooseText("list.csv", text);
    RunImport(script);
  }
  void ImportSample(const std::string& name, const std::function<void(HWND)>& script) {
    ChooseFile(name, Sample(name));
    RunImport(script);
  }
  // Channels on 2 m with these numbers of rows in the list.
  void ImportRows(int count, const std::function<void(HWND)>& script) {
    std::string text = "RX Frequency,Name\n";
    for (int i = 0; i < count; ++i) {
      text += "146." + std::to_string(100 + 5 * i) + ",ROW " + std::to_string(i) + "\n";
    }
    ImportText(text, script);
  }

 private:
  static void RunImport(const std::function<void(HWND)>& script) {
    const DialogScript import(BrowseWithHeaders);
    const DialogScript columns(AcceptDialog);
    const DialogScript selection(script);
    Import();
  }
};

void SelectAllAndAccept(HWND dialog) {
  Press(dialog, ID_SELECT_ALL);
  AcceptDialog(dialog);
}

TEST_F(SelectionDialogTest, ListsTheRecordsUnderTheirHeading) {
  ImportSample("journey.tpe", [](HWND dialog) {
    EXPECT_EQ(CaptionOf(dialog), "Import Data - journey.tpe");
    const auto rows = RowsOf(dialog, ID_IMPORT_ROWS);
    ASSERT_EQ(rows.size(), 16U);
    EXPECT_EQ(rows[0], "146.6100\t-\t88.5\tHARBOUR\tHarbour bridge, east end");
    EXPECT_EQ(rows[1], "442.1000\t+\t100.0\tHARB UHF\tHarbour bridge, east end");
    EXPECT_EQ(rows[2], "146.6400\t-\t     \tSALTFLAT\tSalt flats");
    EXPECT_EQ(TextOf(dialog, ID_IN_LIST), "16");
    EXPECT_EQ(TextOf(dialog, ID_SELECTED), "0");
    EXPECT_EQ(TextOf(dialog, ID_AVAILABLE), "240");
    EXPECT_EQ(TextOf(dialog, ID_START_MEMORY), "2");
    for (const int row : {0, 4, 8}) {
      AddToSelection(dialog, ID_IMPORT_ROWS, row);
    }
    SavePicture(dialog, "import_selection");
    CancelDialog(dialog);
  });
}

TEST_F(SelectionDialogTest, TellsUnderTheListWhatWasLeftOut) {
  ImportText("RX Frequency,Town\n145.5,x\nCall,y\n", [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_IMPORT_DOUBTS),
              "1 line left out: line 3, no receive frequency; line 1, of these columns no field is "
              "known: \"Town\"");
    SavePicture(dialog, "import_doubts");
    CancelDialog(dialog);
  });
}

TEST_F(SelectionDialogTest, TellsNothingWhereThereIsNoDoubt) {
  ImportRows(3, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_IMPORT_DOUBTS), "");
    CancelDialog(dialog);
  });
}

TEST_F(SelectionDialogTest, TheHeadingAndTheTemplatesCaptionAreThere) {
  const HWND dialog = CreateModelessDialog(
      "DlgSelectList", app.main_window, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return 0; },
      nullptr);
  EXPECT_EQ(CaptionOf(dialog), "Select Frequency");
  std::string heading;
  for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr && heading.empty();
       control = GetWindow(control, GW_HWNDNEXT)) {
    heading = CaptionOf(control);
  }
  EXPECT_EQ(heading, "RX Freq     Tone       Name           Location");
  DestroyWindow(dialog);
}

// The tab key moves on to the next control, so that a tab comes into the field by pasting.
TEST_F(SelectionDialogTest, ATabSeparatedListShowsItsOddSplitWithThePlusMinusSign) {
  ChooseFile("mountains.txt", Sample("mountains.txt"));
  const DialogScript import([](HWND dialog) {
    SendDlgItemMessageA(dialog, ID_FIELD_SEPARATOR, EM_SETSEL, 0, -1);
    SendDlgItemMessageA(dialog, ID_FIELD_SEPARATOR, EM_REPLACESEL, FALSE,
                        reinterpret_cast<LPARAM>("\t"));
    BrowseWithHeaders(dialog);
  });
  const DialogScript columns(AcceptDialog);
  const DialogScript selection([](HWND dialog) {
    const auto rows = RowsOf(dialog, ID_IMPORT_ROWS);
    ASSERT_GE(rows.size(), 4U);
    EXPECT_EQ(rows[0], "146.7300\t-\t88.5\tNORTHFCE\tNorth face hut \x96 wind powered");
    EXPECT_EQ(rows[3], "145.9000\t\xB1\t100.0\tXBAND\tCross-band, rescue exercises");
    CancelDialog(dialog);
  });
  Import();
}

TEST_F(SelectionDialogTest, TheGroupChoiceIsHidden) {
  ImportRows(1, [](HWND dialog) {
    for (const int control : {ID_IMPORT_TO, ID_IMPORT_GROUP_1, ID_IMPORT_GROUP_2}) {
      EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, control))) << control;
    }
    CancelDialog(dialog);
  });
}

TEST_F(SelectionDialogTest, CountsWhatIsSelected) {
  ImportRows(5, [](HWND dialog) {
    ClickRow(dialog, ID_IMPORT_ROWS, 1);
    EXPECT_EQ(TextOf(dialog, ID_SELECTED), "1");
    AddToSelection(dialog, ID_IMPORT_ROWS, 3);
    EXPECT_EQ(TextOf(dialog, ID_SELECTED), "2");
    Press(dialog, ID_SELECT_ALL);
    EXPECT_EQ(TextOf(dialog, ID_SELECTED), "5");
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_IMPORT_ROWS, LB_GETSELCOUNT, 0, 0), 5);
    Press(dialog, ID_UNSELECT_ALL);
    EXPECT_EQ(TextOf(dialog, ID_SELECTED), "0");
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_IMPORT_ROWS, LB_GETSELCOUNT, 0, 0), 0);
    CancelDialog(dialog);
  });
}

TEST_F(SelectionDialogTest, OkWritesTheSelectedRowsInTheirOrder) {
  ImportRows(4, [](HWND dialog) {
    AddToSelection(dialog, ID_IMPORT_ROWS, 3);
    AddToSelection(dialog, ID_IMPORT_ROWS, 1);
    Type(dialog, ID_START_MEMORY, "50");
    AcceptDialog(dialog);
  });
  EXPECT_EQ(NameInRecord(Image(), 50), "ROW 1   ");
  EXPECT_EQ(NameInRecord(Image(), 51), "ROW 3   ");
  EXPECT_EQ(FlagByte(Image(), 50) & 0x0B, 0x03);
  EXPECT_EQ(FlagByte(Image(), 51) & 0x0B, 0x03);
  EXPECT_EQ(FlagByte(Image(), 52) & 0x01, 0);
  // 146.105 MHz, 600 kHz, no shift, high power, tone 12; the tables follow.
  EXPECT_EQ(RecordBytes(Image(), 50)[2], 0x14);
  EXPECT_EQ(RecordBytes(Image(), 50)[3], 0x61);
  EXPECT_EQ(RecordBytes(Image(), 50)[4], 0x05);
  EXPECT_EQ(Image()[180 + 49 * 12] & 0x01, 0x01);
  EXPECT_EQ(Image()[11'202 + 49 * 10], 'R');
}

TEST_F(SelectionDialogTest, AnImportDoesNotMarkTheDocumentAsChanged) {
  ImportRows(2, SelectAllAndAccept);
  EXPECT_EQ(NameInRecord(Image(), 2), "ROW 0   ");
  EXPECT_FALSE(app.document.changed);
  EXPECT_EQ(Image(), app.document.working_copy);
  EXPECT_FALSE(CollectMainDialog(app.document));
}

TEST_F(SelectionDialogTest, LinesOutsideTheBandsAreNotListed) {
  ImportText("RX Frequency,Name\n5000,A\n0,B\nabc,C\n", [](HWND dialog) {
    EXPECT_TRUE(RowsOf(dialog, ID_IMPORT_ROWS).empty());
    EXPECT_EQ(TextOf(dialog, ID_IN_LIST), "0");
    AcceptDialog(dialog);
  });
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(SelectionDialogTest, Start230WithTwelveRowsIsRefusedAndStart229IsNot) {
  const CloneImage before = Image();
  ImportRows(12, [&](HWND dialog) {
    Press(dialog, ID_SELECT_ALL);
    Type(dialog, ID_START_MEMORY, "230");
    AcceptDialog(dialog);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{
                                "Too many frequencies are selected.\nDeselect some of the "
                                "frequencies so that\nSelected is less that Available - Start."});
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(TextOf(dialog, ID_SELECTED), "12");
    EXPECT_EQ(Image(), before);
    Type(dialog, ID_START_MEMORY, "229");
    AcceptDialog(dialog);
  });
  EXPECT_EQ(NameInRecord(Image(), 229), "ROW 0   ");
  EXPECT_EQ(NameInRecord(Image(), 240), "ROW 11  ");
}

TEST_F(SelectionDialogTest, AStartBelow1IsRefused) {
  for (const char* start : {"0", "-3", "", "first"}) {
    test_seams.messages.clear();
    const CloneImage before = Image();
    ImportRows(1, [&](HWND dialog) {
      Press(dialog, ID_SELECT_ALL);
      Type(dialog, ID_START_MEMORY, start);
      SetFocus(GetDlgItem(dialog, IDOK));
      AcceptDialog(dialog);
      EXPECT_EQ(GetFocus(), GetDlgItem(dialog, ID_START_MEMORY)) << start;
      CancelDialog(dialog);
    });
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Illegal Start Channel"}) << start;
    EXPECT_EQ(Image(), before);
  }
}

TEST_F(SelectionDialogTest, OverwritesWhateverTheBoxShows) {
  ImportRows(1, [](HWND dialog) {
    EXPECT_FALSE(IsChecked(dialog, ID_OVERWRITE));
    Type(dialog, ID_START_MEMORY, "1");
    SelectAllAndAccept(dialog);
  });
  EXPECT_EQ(NameInRecord(Image(), 1), "ROW 0   ");
}

TEST_F(SelectionDialogTest, StartsInTheLongestRunOfFreeChannels) {
  Program(Image(), 1, 10);
  Program(Image(), 50, 220);
  ImportRows(1, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_START_MEMORY), "11");
    CancelDialog(dialog);
  });
  Program(Image(), 1, 220);
  ImportRows(1, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_START_MEMORY), "1");
    CancelDialog(dialog);
  });
}

TEST_F(SelectionDialogTest, CancelAndClosingWriteNothing) {
  const CloneImage before = Image();
  ImportRows(2, [](HWND dialog) {
    Press(dialog, ID_SELECT_ALL);
    Press(dialog, ID_HELP);
    EXPECT_TRUE(IsWindowVisible(dialog));
    CancelDialog(dialog);
  });
  ImportRows(2, [](HWND dialog) {
    Press(dialog, ID_SELECT_ALL);
    SendMessageA(dialog, WM_CLOSE, 0, 0);
  });
  EXPECT_EQ(Image(), before);
}

TEST_F(SelectionDialogTest, LeaksNoGdiObject) {
  ImportRows(1, CancelDialog);
  const ProcessObjects before = CountObjects();
  for (int i = 0; i < 3; ++i) {
    ImportRows(1, CancelDialog);
  }
  EXPECT_TRUE(ComesBackTo(before));
}

TEST_F(SelectionDialogTest, ListsALongFileAtOnce) {
  std::string text = "RX Frequency,Name\n";
  for (int i = 0; i < 20'000; ++i) {
    text += "146.52,ROW\n";
  }
  ImportText(text, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_IN_LIST), "20000");
    Press(dialog, ID_SELECT_ALL);
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_IMPORT_ROWS, LB_GETSELCOUNT, 0, 0), 20'000);
    CancelDialog(dialog);
  });
}

std::vector<int> tab_stops;

LRESULT CALLBACK NoteTabStops(int code, WPARAM w, LPARAM l) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(l);
  if (code == HC_ACTION && sent.message == LB_SETTABSTOPS &&
      GetDlgCtrlID(sent.hwnd) == ID_IMPORT_ROWS) {
    const auto* stops = reinterpret_cast<const INT*>(sent.lParam);
    tab_stops.assign(stops, stops + sent.wParam);
  }
  return CallNextHookEx(nullptr, code, w, l);
}

TEST_F(SelectionDialogTest, ItsColumnsStandAtSixTabStops) {
  const HHOOK hook = SetWindowsHookExA(WH_CALLWNDPROC, NoteTabStops, nullptr, GetCurrentThreadId());
  ImportRows(1, CancelDialog);
  UnhookWindowsHookEx(hook);
  ASSERT_EQ(tab_stops.size(), 6U);
  const std::vector<int> dialog_units = {30, 40, 72, 112, 135, 150};
  for (std::size_t i = 0; i < dialog_units.size(); ++i) {
    EXPECT_NEAR(tab_stops[i], tab_stops[5] * dialog_units[i] / 150.0, 3) << i;
  }
}

}  // namespace
}  // namespace qz7
