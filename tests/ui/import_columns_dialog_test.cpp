#include "desktop/interchange/import_columns_dialog.h"

#include <algorithm>

#include "tests/ui/interchange_windows.h"

namespace qz7 {
namespace {

class ImportColumnsDialogTest : public InterchangeWindowTest {
 protected:
  static std::uint32_t ColumnOf(CsvColumn field) {
    return app.import_session.columns[static_cast<std::size_t>(field)];
  }
};

std::vector<std::string> FieldsOf(HWND dialog) { return RowsOf(dialog, ID_COLUMN_FIELDS); }
std::vector<std::string> TextsOf(HWND dialog) { return RowsOf(dialog, ID_COLUMN_TEXTS); }

// The numbers of the buttons that can be pressed, from 0.
std::vector<int> EnabledFields(HWND dialog) {
  std::vector<int> fields;
  for (int k = 0; k < kCsvColumnCount; ++k) {
    if (IsEnabled(dialog, ID_FIRST_FIELD + k)) {
      fields.push_back(k);
    }
  }
  return fields;
}

const std::vector<int> kAllFields = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};

TEST_F(ImportColumnsDialogTest, TheButtonsAreTheFieldsInOrder) {
  ChooseText("list.csv", "146.52,CALL\n");
  const DialogScript import(BrowseAndAccept);
  const DialogScript script([](HWND dialog) {
    for (int k = 0; k < kCsvColumnCount; ++k) {
      std::string text = TextOf(dialog, ID_FIRST_FIELD + k);
      std::erase(text, '&');
      EXPECT_EQ(text, kCsvColumns[static_cast<std::size_t>(k)].title);
    }
    CancelDialog(dialog);
  });
  Import();
}

TEST_F(ImportColumnsDialogTest, TheHeaderLineAssignsItsColumns) {
  ChooseFile("journey.tpe", Sample("journey.tpe"));
  const DialogScript import(BrowseWithHeaders);
  const DialogScript script([](HWND dialog) {
    SavePicture(dialog, "import_columns");
    EXPECT_EQ(CaptionOf(dialog), "Import Data - journey.tpe");
    EXPECT_EQ(FieldsOf(dialog), (std::vector<std::string>{"Comment", "RX Frequency", "TX Frequency",
                                                          "", "Name", "Enc Frequency"}));
    EXPECT_EQ(TextsOf(dialog), (std::vector<std::string>{"Harbour bridge, east end", "146.6100",
                                                         "146.0100", "2m", "HARBOUR", "88.5"}));
    EXPECT_EQ(EnabledFields(dialog), (std::vector<int>{2, 3, 4, 5, 7}));
    AcceptDialog(dialog);
  });
  const DialogScript selection(CancelDialog);
  Import();
  EXPECT_EQ(ColumnOf(kCommentColumn), 1U);
  EXPECT_EQ(ColumnOf(kEncFrequency), 6U);
  EXPECT_EQ(ColumnOf(kOffsetColumn), 0U);
}

TEST_F(ImportColumnsDialogTest, AButtonGivesTheSelectedColumnItsField) {
  ChooseText("list.csv", "146.52,CALL\n");
  const DialogScript import(BrowseAndAccept);
  const DialogScript script([](HWND dialog) {
    EXPECT_EQ(FieldsOf(dialog), (std::vector<std::string>{"", ""}));
    EXPECT_EQ(EnabledFields(dialog), kAllFields);
    ClickRow(dialog, ID_COLUMN_TEXTS, 1);
    Press(dialog, ID_FIRST_FIELD + kNameColumn);
    EXPECT_EQ(FieldsOf(dialog), (std::vector<std::string>{"", "Name"}));
    EXPECT_TRUE(EnabledFields(dialog).empty());
    ClickRow(dialog, ID_COLUMN_TEXTS, 0);
    EXPECT_EQ(EnabledFields(dialog), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 9}));
    Press(dialog, ID_FIRST_FIELD + kRxFrequency);
    AcceptDialog(dialog);
  });
  const DialogScript selection(CancelDialog);
  Import();
  EXPECT_EQ(ColumnOf(kRxFrequency), 1U);
  EXPECT_EQ(ColumnOf(kNameColumn), 2U);
}

TEST_F(ImportColumnsDialogTest, SelectingAColumnTakesItsFieldAway) {
  ChooseText("list.csv", "RX Frequency,Name\n146.52,CALL\n");
  const DialogScript import(BrowseWithHeaders);
  const DialogScript script([](HWND dialog) {
    ClickRow(dialog, ID_COLUMN_TEXTS, 0);
    EXPECT_EQ(FieldsOf(dialog), (std::vector<std::string>{"", "Name"}));
    EXPECT_TRUE(IsEnabled(dialog, ID_FIRST_FIELD + kRxFrequency));
    EXPECT_FALSE(IsEnabled(dialog, ID_FIRST_FIELD + kNameColumn));
    AcceptDialog(dialog);
  });
  const DialogScript selection(CancelDialog);
  Import();
  EXPECT_EQ(ColumnOf(kRxFrequency), 0U);
  EXPECT_EQ(ColumnOf(kNameColumn), 2U);
}

TEST_F(ImportColumnsDialogTest, AButtonWithoutASelectedColumnAssignsNothing) {
  ChooseText("list.csv", "146.52,CALL\n");
  const DialogScript import(BrowseAndAccept);
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_FIRST_FIELD + kNameColumn);
    EXPECT_EQ(FieldsOf(dialog), (std::vector<std::string>{"", ""}));
    EXPECT_TRUE(EnabledFields(dialog).empty());
    AcceptDialog(dialog);
  });
  const DialogScript selection(CancelDialog);
  Import();
  EXPECT_EQ(app.import_session.columns, ColumnAssignment{});
}

TEST_F(ImportColumnsDialogTest, TheKeyboardStaysInTheListWhenTheButtonsGoOff) {
  ChooseText("list.csv", "146.52,CALL\n");
  const DialogScript import(BrowseAndAccept);
  const DialogScript script([](HWND dialog) {
    SendMessageA(GetDlgItem(dialog, ID_COLUMN_TEXTS), WM_KEYDOWN, VK_DOWN, 0);
    Press(dialog, ID_FIRST_FIELD);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, ID_COLUMN_TEXTS));
    EXPECT_EQ(FieldsOf(dialog)[0] + FieldsOf(dialog)[1], "RX Frequency");
    CancelDialog(dialog);
  });
  Import();
}

TEST_F(ImportColumnsDialogTest, ADataLineWithoutTheSeparatorFillsNoList) {
  ChooseText("list.txt", "146.52;CALL\n");
  const DialogScript import(BrowseAndAccept);
  const DialogScript script([](HWND dialog) {
    EXPECT_TRUE(FieldsOf(dialog).empty());
    EXPECT_TRUE(TextsOf(dialog).empty());
    AcceptDialog(dialog);
  });
  const DialogScript selection([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_IN_LIST), "0");
    CancelDialog(dialog);
  });
  Import();
}

TEST_F(ImportColumnsDialogTest, FixedLengthFieldsListNothing) {
  ChooseText("list.txt", "146.52,CALL\n146.54,CALL\n");
  const DialogScript import([](HWND dialog) {
    Press(dialog, ID_FIXED_LENGTH);
    BrowseAndAccept(dialog);
  });
  const DialogScript script([](HWND dialog) {
    EXPECT_TRUE(TextsOf(dialog).empty());
    AcceptDialog(dialog);
  });
  const DialogScript selection([](HWND dialog) {
    EXPECT_TRUE(RowsOf(dialog, ID_IMPORT_ROWS).empty());
    Press(dialog, ID_SELECT_ALL);
    EXPECT_EQ(TextOf(dialog, ID_SELECTED), "2");
    AcceptDialog(dialog);
  });
  CloneImage rebuilt = Image();
  RebuildDerivedTables(rebuilt);
  Import();
  EXPECT_EQ(Image(), rebuilt);
}

TEST_F(ImportColumnsDialogTest, AFileWithoutItsHeaderLineIsReportedByBothWindows) {
  ChooseText("empty.csv", "");
  const DialogScript import(BrowseWithHeaders);
  const DialogScript script(AcceptDialog);
  Import();
  EXPECT_EQ(ShownTexts(),
            (std::vector<std::string>{"Error reading file", "Error reading file: empty.csv"}));
  EXPECT_EQ(test_seams.messages.front().caption, "File Read Error");
  EXPECT_EQ(test_seams.messages.back().caption, "File error");
}

TEST_F(ImportColumnsDialogTest, ClosingItEndsTheImport) {
  ChooseFile("journey.tpe", Sample("journey.tpe"));
  const CloneImage before = Image();
  const DialogScript import(BrowseWithHeaders);
  const DialogScript script([](HWND dialog) { SendMessageA(dialog, WM_CLOSE, 0, 0); });
  Import();
  EXPECT_EQ(Image(), before);
  EXPECT_EQ(ColumnOf(kNameColumn), 5U);  // as the header line has it
}

TEST_F(ImportColumnsDialogTest, BothListsScrollTogether) {
  std::string line = "146.52";
  for (int column = 2; column <= 60; ++column) {
    line += "," + std::to_string(column);
  }
  ChooseText("wide.csv", line + "\n");
  const DialogScript import(BrowseAndAccept);
  const DialogScript script([](HWND dialog) {
    const auto top_of = [&](int list) {
      return SendDlgItemMessageA(dialog, list, LB_GETTOPINDEX, 0, 0);
    };
    ASSERT_EQ(TextsOf(dialog).size(), 60U);
    SendDlgItemMessageA(dialog, ID_COLUMN_TEXTS, WM_VSCROLL, SB_PAGEDOWN, 0);
    EXPECT_GT(top_of(ID_COLUMN_TEXTS), 0);
    EXPECT_EQ(top_of(ID_COLUMN_FIELDS), top_of(ID_COLUMN_TEXTS));
    // Without a selected row, the first key may only select one.
    SendDlgItemMessageA(dialog, ID_COLUMN_TEXTS, WM_KEYDOWN, VK_END, 0);
    SendDlgItemMessageA(dialog, ID_COLUMN_TEXTS, WM_KEYDOWN, VK_END, 0);
    EXPECT_EQ(top_of(ID_COLUMN_FIELDS), top_of(ID_COLUMN_TEXTS));
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_COLUMN_TEXTS, LB_GETCURSEL, 0, 0), 59);
    Press(dialog, ID_FIRST_FIELD);
    EXPECT_EQ(FieldsOf(dialog).back(), "RX Frequency");
    EXPECT_EQ(top_of(ID_COLUMN_FIELDS), top_of(ID_COLUMN_TEXTS));
    CancelDialog(dialog);
  });
  Import();
}

}  // namespace
}  // namespace qz7
