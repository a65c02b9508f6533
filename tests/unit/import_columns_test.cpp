#include "core/interchange/import_columns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/unit/interchange_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace interchange_fixture;

using Texts = std::vector<std::string>;

struct Opened {
  ImportSession session;
  ColumnDialog dialog;
};

Opened Open(std::string_view file, const ImportOptions& options) {
  Opened opened;
  TakeImportOptions(opened.session, options);
  opened.session.columns.fill(7);  // of the file before
  ImportLines lines = Lines(file);
  opened.dialog = OpenColumnDialog(opened.session, lines);
  return opened;
}

Opened OpenPlain(std::string_view file) { return Open(file, {}); }

Opened OpenWithHeaders(std::string_view file) {
  ImportOptions options;
  options.headers = true;
  return Open(file, options);
}

// The fields whose buttons can be pressed.
std::vector<int> Enabled(const ColumnDialog& dialog) {
  std::vector<int> fields;
  for (int k = 0; k < kCsvColumnCount; ++k) {
    if (dialog.enabled[static_cast<std::size_t>(k)]) {
      fields.push_back(k);
    }
  }
  return fields;
}

std::vector<int> AllFields() { return {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}; }

TEST(ColumnDialog, ShowsTheCellsOfTheFirstLineAndNoField) {
  const Opened opened = OpenPlain("146.94,RPT1,\"North, ridge\"\n146.52,CALL,x\n");
  EXPECT_EQ(opened.dialog.texts, (Texts{"146.94", "RPT1", "North, ridge"}));
  EXPECT_EQ(opened.dialog.names, (Texts{"", "", ""}));
  EXPECT_EQ(opened.session.columns, ColumnAssignment{});
  EXPECT_EQ(opened.dialog.columns, ColumnAssignment{});
  EXPECT_EQ(Enabled(opened.dialog), AllFields());
}

TEST(ColumnDialog, TakesTheColumnsFromTheHeaderLine) {
  const Opened opened =
      OpenWithHeaders("Call Sign,Output Frequency,Band,Location\nRPT1,146.94,2m,North ridge\n");
  const ColumnAssignment expected =
      Columns({{kNameColumn, 1}, {kRxFrequency, 2}, {kCommentColumn, 4}});
  EXPECT_EQ(opened.dialog.columns, expected);
  EXPECT_EQ(opened.session.columns, expected);
  EXPECT_EQ(opened.dialog.texts, (Texts{"RPT1", "146.94", "2m", "North ridge"}));
  EXPECT_EQ(opened.dialog.names, (Texts{"Name", "RX Frequency", "", "Comment"}));
  EXPECT_EQ(Enabled(opened.dialog), (std::vector<int>{1, 2, 3, 4, 5, 6, 7}));
}

TEST(ColumnDialog, KnowsEveryFieldByItsNames) {
  const std::vector<std::pair<const char*, int>> names = {
      {"RX Frequency", 0},  {"Output Frequency", 0},
      {"TX Frequency", 1},  {"Input Frequency", 1},
      {"Offset", 2},        {"Tone", 3},
      {"Skip", 4},          {"Power", 5},
      {"Enc Frequency", 6}, {"CTCSS Tones", 6},
      {"Dec Frequency", 7}, {"Name", 8},
      {"Call Sign", 8},     {"Comment", 9},
      {"Location", 9}};
  for (const auto& [name, field] : names) {
    EXPECT_EQ(FieldOfHeader(name), field) << name;
  }
}

TEST(ColumnDialog, KnowsAHeaderOnlyToTheLetter) {
  for (const char* cell : {"", "name", "NAME", "Name ", " Name", "Names", "Call sign", "Tones"}) {
    EXPECT_EQ(FieldOfHeader(cell), -1) << cell;
  }
}

TEST(ColumnDialog, GivesAFieldToTheLaterOfTwoColumns) {
  const Opened opened = OpenWithHeaders("Name,RX Frequency,Call Sign\nA,146.94,B\n");
  EXPECT_EQ(opened.dialog.columns, Columns({{kRxFrequency, 2}, {kNameColumn, 3}}));
  EXPECT_EQ(opened.dialog.names, (Texts{"", "RX Frequency", "Name"}));
}

TEST(ColumnDialog, StaysEmptyForAFirstLineWithoutASeparator) {
  const Opened opened = OpenPlain("146.94;RPT1\n146.52,CALL\n");
  EXPECT_EQ(opened.dialog.texts, Texts{});
  EXPECT_EQ(opened.dialog.names, Texts{});
  EXPECT_EQ(Enabled(opened.dialog), AllFields());
}

TEST(ColumnDialog, ShowsTheWholeLineWhereThereIsNoSeparator) {
  ImportOptions options;
  options.field_separator = '\0';
  EXPECT_EQ(Open("146.94\n146.52\n", options).dialog.texts, Texts{"146.94"});
}

TEST(ColumnDialog, StaysEmptyForFixedLengthFields) {
  ImportOptions options;
  options.delimited = false;
  options.headers = true;
  const Opened opened = Open("Name,RX Frequency\nRPT1,146.94\n", options);
  EXPECT_EQ(opened.dialog.texts, Texts{});
  EXPECT_EQ(opened.dialog.columns, ColumnAssignment{});
  EXPECT_EQ(Enabled(opened.dialog), AllFields());
  EXPECT_TRUE(ShownTexts().empty());
}

TEST(ColumnDialog, ReportsAHeaderLineThatCannotBeReadAndGoesOn) {
  const Opened opened = OpenWithHeaders("");
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "Error reading file");
  EXPECT_EQ(test_seams.messages[0].caption, "File Read Error");
  EXPECT_EQ(Enabled(opened.dialog), AllFields());
}

TEST(ColumnDialog, StaysEmptyWithoutADataLine) {
  const Opened opened = OpenWithHeaders("Name,RX Frequency\n");
  EXPECT_EQ(opened.dialog.texts, Texts{});
  EXPECT_EQ(opened.dialog.columns, Columns({{kNameColumn, 1}, {kRxFrequency, 2}}));
  EXPECT_TRUE(ShownTexts().empty());
}

TEST(ColumnDialog, ReadsTheDataLineInTheQuotesThatTheHeaderLineLeftOpen) {
  const Opened opened = OpenWithHeaders("Name,\"RX Frequency\nRPT1,146.94\n");
  EXPECT_EQ(opened.dialog.texts, Texts{"RPT1,146.94"});
}

TEST(ColumnDialog, FreesAColumnWhenItsRowIsSelected) {
  Opened opened = OpenWithHeaders("Name,RX Frequency\nRPT1,146.94\n");
  SelectColumn(opened.dialog, 0);
  EXPECT_EQ(opened.dialog.columns, Columns({{kRxFrequency, 2}}));
  EXPECT_EQ(opened.dialog.names, (Texts{"", "RX Frequency"}));
  EXPECT_EQ(Enabled(opened.dialog), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(ColumnDialog, AssignsTheSelectedRowAndDisablesTheButtons) {
  Opened opened = OpenPlain("146.94,RPT1\n");
  SelectColumn(opened.dialog, 1);
  PressFieldButton(opened.dialog, kNameColumn, 1);
  EXPECT_EQ(opened.dialog.columns, Columns({{kNameColumn, 2}}));
  EXPECT_EQ(opened.dialog.names, (Texts{"", "Name"}));
  EXPECT_EQ(Enabled(opened.dialog), std::vector<int>{});
  SelectColumn(opened.dialog, 0);
  EXPECT_EQ(Enabled(opened.dialog), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 9}));
  PressFieldButton(opened.dialog, kRxFrequency, 0);
  EXPECT_EQ(opened.dialog.columns, Columns({{kRxFrequency, 1}, {kNameColumn, 2}}));
}

TEST(ColumnDialog, TakesTheRowFromTheFieldThatHadIt) {
  Opened opened = OpenPlain("146.94,RPT1\n");
  PressFieldButton(opened.dialog, kNameColumn, 1);
  PressFieldButton(opened.dialog, kCommentColumn, 1);
  EXPECT_EQ(opened.dialog.columns, Columns({{kCommentColumn, 2}}));
  EXPECT_EQ(opened.dialog.names, (Texts{"", "Comment"}));
}

TEST(ColumnDialog, UnassignsAFieldThatHasAnotherColumnAndStillShowsItsName) {
  Opened opened = OpenPlain("146.94,RPT1,North\n");
  PressFieldButton(opened.dialog, kNameColumn, 1);
  PressFieldButton(opened.dialog, kNameColumn, 2);
  EXPECT_EQ(opened.dialog.columns, ColumnAssignment{});
  EXPECT_EQ(opened.dialog.names, (Texts{"", "Name", "Name"}));
}

TEST(ColumnDialog, AssignsAFieldAnewToTheRowThatItHas) {
  Opened opened = OpenPlain("146.94,RPT1\n");
  PressFieldButton(opened.dialog, kNameColumn, 1);
  PressFieldButton(opened.dialog, kNameColumn, 1);
  EXPECT_EQ(opened.dialog.columns, Columns({{kNameColumn, 2}}));
}

TEST(ColumnDialog, CommitsItsColumnsWithOkOnly) {
  Opened opened = OpenPlain("146.94,RPT1\n");
  PressFieldButton(opened.dialog, kRxFrequency, 0);
  EXPECT_EQ(opened.session.columns, ColumnAssignment{});
  AcceptColumns(opened.session, opened.dialog);
  EXPECT_EQ(opened.session.columns, Columns({{kRxFrequency, 1}}));
}

}  // namespace
}  // namespace qz7
