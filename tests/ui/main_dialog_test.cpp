#include <numeric>

#include "tests/ui/feature_fixture.h"

namespace qz7 {
namespace {

using MainDialogTest = WindowTest;
using MainDialogDefaultsTest = FeatureDialogTest;

CloneImage& Image() { return app.document.image; }

void Command(int command) { SendMessageA(app.main_window, WM_COMMAND, MAKEWPARAM(command, 0), 0); }

TEST_F(MainDialogTest, FillsTheMainWindow) {
  RECT client;
  RECT dialog;
  GetClientRect(app.main_window, &client);
  GetWindowRect(app.main_dialog, &dialog);
  POINT origin{0, 0};
  ClientToScreen(app.main_window, &origin);
  EXPECT_EQ(dialog.left, origin.x);
  EXPECT_EQ(dialog.top, origin.y);
  EXPECT_EQ(dialog.right - dialog.left, client.right);
  EXPECT_EQ(dialog.bottom - dialog.top, client.bottom);
  SavePicture(app.main_window, "main");
}

TEST_F(MainDialogTest, NamesTheNewDocumentInTheTitle) {
  char title[100] = "";
  GetWindowTextA(app.main_window, title, sizeof title);
  EXPECT_STREQ(title, "QZ-7H Programmer - NONAME.RDF");
}

// A list or the first button of a group, and the byte that it stores.
constexpr std::pair<int, std::size_t> kBytes[] = {{103, 10'240}, {104, 10'241}, {111, 10'200},
                                                  {112, 10'206}, {108, 10'202}, {114, 10'203},
                                                  {132, 10'201}};
// A check box or the second button of two, its byte and its bit.
struct BitControl {
  int control;
  std::size_t offset;
  int bit;
};
constexpr BitControl kBits[] = {
    {105, 10'504, 7}, {106, 10'504, 5}, {110, 10'504, 2}, {119, 10'504, 1}, {120, 10'504, 6},
    {122, 10'504, 3}, {107, 10'505, 3}, {113, 10'505, 7}, {116, 10'505, 4}, {118, 10'505, 0},
    {115, 10'506, 0}, {117, 10'506, 1}, {127, 10'506, 5}, {136, 10'506, 4}};

TEST_F(MainDialogTest, EveryListAndGroupShowsAndStoresItsByte) {
  for (const auto& [control, offset] : kBytes) {
    for (const std::uint8_t position : {std::uint8_t{0}, std::uint8_t{2}}) {
      CloneImage wanted = Image();
      wanted[offset] = position;
      LoadMainDialog(wanted);
      if (control == 132) {
        EXPECT_TRUE(IsChecked(app.main_dialog, 132 + position));
      } else {
        EXPECT_EQ(ChosenInList(app.main_dialog, control), position) << control;
      }
      ReadMainControls(Image());
      EXPECT_EQ(Image(), wanted) << control;
    }
  }
}

TEST_F(MainDialogTest, EveryBoxAndPairShowsAndStoresItsBitAlone) {
  for (const auto& [control, offset, bit] : kBits) {
    Image()[offset] = 0;
    LoadMainDialog(Image());
    EXPECT_FALSE(IsChecked(app.main_dialog, control)) << control;
    Press(app.main_dialog, control);
    ReadMainControls(Image());
    EXPECT_EQ(Image()[offset], 1 << bit) << control;
    LoadMainDialog(Image());
    EXPECT_TRUE(IsChecked(app.main_dialog, control)) << control;
  }
}

TEST_F(MainDialogTest, EveryNotificationOfAValueEnablesTheDefaultsButtons) {
  std::vector<int> enabling;
  Press(app.main_dialog, ID_USE_DEFAULTS);
  for (int control = 10; control < 300; ++control) {
    if (control == ID_USE_DEFAULTS || control == ID_STORE_DEFAULTS) {
      continue;
    }
    SendMessageA(app.main_dialog, WM_COMMAND, MAKEWPARAM(control, 7), 0);
    if (IsEnabled(app.main_dialog, ID_STORE_DEFAULTS)) {
      enabling.push_back(control);
      Press(app.main_dialog, ID_USE_DEFAULTS);
      ASSERT_FALSE(IsEnabled(app.main_dialog, ID_STORE_DEFAULTS));
    }
  }
  std::vector<int> wanted(18);
  std::iota(wanted.begin(), wanted.end(), 103);
  for (const int control : {122, 126, 127, 132, 133, 134, 135, 136}) {
    wanted.push_back(control);
  }
  EXPECT_EQ(enabling, wanted);
}

TEST_F(MainDialogTest, WhatNothingTellsShowsItsPlaceAsATooltip) {
  ASSERT_TRUE(HandleMessagesUntil([] { return !TooltipOf(app.main_dialog, 105).empty(); }));
  EXPECT_EQ(TooltipOf(app.main_dialog, 105), "Byte 10504, bit 7");
  EXPECT_EQ(TooltipOf(app.main_dialog, 134), "Byte 10201");
  EXPECT_EQ(TooltipOf(app.main_dialog, 127), "Byte 10506, bit 5");
  EXPECT_EQ(TooltipOf(app.main_dialog, 103), "");
}

TEST_F(MainDialogDefaultsTest, AButtonThatGoesDisabledGivesItsFocusToTheComment) {
  for (const int button : {ID_USE_DEFAULTS, ID_STORE_DEFAULTS}) {
    Choose(app.main_dialog, 111, 1);
    SetFocus(GetDlgItem(app.main_dialog, button));
    Press(app.main_dialog, button);
    EXPECT_EQ(GetFocus(), GetDlgItem(app.main_dialog, ID_FILE_COMMENT));
    EXPECT_FALSE(IsEnabled(app.main_dialog, ID_USE_DEFAULTS));
    EXPECT_FALSE(IsEnabled(app.main_dialog, ID_STORE_DEFAULTS));
  }
}

TEST_F(MainDialogTest, TheListsHaveTheirTexts) {
  char text[50] = "";
  SendDlgItemMessageA(app.main_dialog, 111, CB_GETLBTEXT, 6, reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(text, "All");
  EXPECT_EQ(SendDlgItemMessageA(app.main_dialog, 111, CB_GETCOUNT, 0, 0), 7);
  EXPECT_EQ(SendDlgItemMessageA(app.main_dialog, 103, CB_GETCOUNT, 0, 0), 6);
}

TEST_F(MainDialogTest, ARadioButtonStoresItsNumber) {
  Press(app.main_dialog, 134);
  ReadMainControls(Image());
  EXPECT_EQ(Image()[10'201], 2);
  EXPECT_FALSE(IsChecked(app.main_dialog, 132));
  Press(app.main_dialog, 127);
  Press(app.main_dialog, 136);
  ReadMainControls(Image());
  EXPECT_EQ(Image()[10'506] & 0x30, 0x30);
  EXPECT_TRUE(IsChecked(app.main_dialog, 134));
}

TEST_F(MainDialogTest, ARadioButtonClearsTheOthersAlsoAfterItsGroupWasLoaded) {
  CloneImage wanted = Image();
  wanted[10'201] = 2;
  LoadMainDialog(wanted);
  SendDlgItemMessageA(app.main_dialog, ID_OPTION_A_SECOND, BM_CLICK, 0, 0);
  EXPECT_FALSE(IsChecked(app.main_dialog, ID_OPTION_A_FIRST));
  EXPECT_TRUE(IsChecked(app.main_dialog, ID_OPTION_A_SECOND));
  EXPECT_FALSE(IsChecked(app.main_dialog, ID_OPTION_A_THIRD));
}

TEST_F(MainDialogTest, AnUnknownValueShowsNothingAndStays) {
  Image()[10'240] = 6;
  Image()[10'203] = 200;
  LoadMainDialog(Image());
  EXPECT_EQ(SendDlgItemMessageA(app.main_dialog, 103, CB_GETCURSEL, 0, 0), CB_ERR);
  ReadMainControls(Image());
  EXPECT_EQ(Image()[10'240], 6);
  EXPECT_EQ(Image()[10'203], 200);
}

TEST_F(MainDialogTest, LargeAutoPowerOffValuesShowOff) {
  Image()[10'240] = 7;
  LoadMainDialog(Image());
  EXPECT_EQ(SendDlgItemMessageA(app.main_dialog, 103, CB_GETCURSEL, 0, 0), 0);
}

TEST_F(MainDialogTest, TheCommentTakes79Characters) {
  Type(app.main_dialog, 109, std::string(90, 'x'));
  ReadMainControls(Image());
  EXPECT_EQ(Image()[178], 'x');
  EXPECT_EQ(Image()[179], 0);
}

TEST_F(MainDialogTest, UseDefaultsShowsThemAndDisablesBothButtons) {
  app.document.defaults[582] = 3;  // image byte 10200
  Press(app.main_dialog, ID_USE_DEFAULTS);
  EXPECT_EQ(Image()[10'200], 3);
  EXPECT_EQ(SendDlgItemMessageA(app.main_dialog, 111, CB_GETCURSEL, 0, 0), 3);
  EXPECT_FALSE(IsEnabled(app.main_dialog, 121));
  EXPECT_FALSE(IsEnabled(app.main_dialog, 123));
}

TEST_F(MainDialogTest, ANotificationEnablesTheButtonsAgain) {
  Press(app.main_dialog, ID_USE_DEFAULTS);
  Choose(app.main_dialog, 111, 1);
  EXPECT_TRUE(IsEnabled(app.main_dialog, 121));
  EXPECT_TRUE(IsEnabled(app.main_dialog, 123));
  Press(app.main_dialog, ID_USE_DEFAULTS);
  Press(app.main_dialog, 122);
  EXPECT_TRUE(IsEnabled(app.main_dialog, 121));
}

TEST_F(MainDialogDefaultsTest, SaveAsDefaultsStoresAndWritesTheRecord) {
  Choose(app.main_dialog, 112, 4);
  Press(app.main_dialog, ID_STORE_DEFAULTS);
  EXPECT_EQ(app.document.defaults[588], 4);
  const Bytes file = DefaultsOnDisk();
  ASSERT_EQ(file.size(), 799U);
  EXPECT_EQ(file[588], 4);
  EXPECT_FALSE(IsEnabled(app.main_dialog, 121));
  EXPECT_FALSE(IsEnabled(app.main_dialog, 123));
}

TEST_F(MainDialogTest, AChangedListMakesExitAsk) {
  Choose(app.main_dialog, 103, 2);
  Command(CM_EXIT);
  HandleMessages();
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "NONAME.RDF has been changed.\nSave file before closing?");
  EXPECT_TRUE(IsWindow(app.main_window));
}

TEST_F(MainDialogTest, ExitAsksAgainAfterASave) {
  test_seams.files = {Chosen(folder.File("mine.rdf"))};
  Command(CM_SAVE_AS);
  Choose(app.main_dialog, 103, 2);
  Command(CM_SAVE);
  EXPECT_TRUE(test_seams.messages.empty());
  Command(CM_EXIT);
  HandleMessages();
  EXPECT_EQ(test_seams.messages.size(), 1U);
}

TEST_F(MainDialogTest, ExitWithoutChangesDestroysTheWindow) {
  const HWND window = app.main_window;
  Command(CM_EXIT);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    DispatchMessageA(&message);
  }
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(app.main_dialog, nullptr);
}

TEST_F(MainDialogTest, ClosingTheDialogClosesTheProgram) {
  SendMessageA(app.main_dialog, WM_CLOSE, 0, 0);
  EXPECT_EQ(app.main_dialog, nullptr);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    DispatchMessageA(&message);
  }
  EXPECT_FALSE(IsWindow(app.main_window));
}

TEST_F(MainDialogTest, EscapeDoesNotCloseIt) {
  SendMessageA(app.main_dialog, WM_COMMAND, IDCANCEL, 0);
  HandleMessages();
  EXPECT_TRUE(IsWindow(app.main_dialog));
}

TEST_F(MainDialogTest, TheWindowGivesItsFocusToTheDialog) {
  SetFocus(nullptr);
  SendMessageA(app.main_window, WM_SETFOCUS, 0, 0);
  EXPECT_TRUE(GetFocus() == app.main_dialog || IsChild(app.main_dialog, GetFocus()));
}

}  // namespace
}  // namespace qz7
