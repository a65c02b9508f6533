#include "core/editors/group_table.h"
#include "desktop/commands.h"
#include "tests/ui/memory_list_fixture.h"

namespace qz7 {
namespace {

TEST_F(MemoryListTest, ShowsEveryChannelInItsRow) {
  std::uint8_t* record = GetChannelRecord(Image(), 12);
  record[2] = 0x99;
  record[3] = 0x99;
  record[4] = 0x90;
  record[17] = 0x3F;
  SetChannelName(Image(), 12, "WWWWWWWW");
  SetSkip(Image(), 12, true);
  SetMasked(Image(), 12, true);
  Working() = Image();
  Open([](HWND dialog) {
    EXPECT_EQ(SendMessageA(ListOf(dialog), LB_GETCOUNT, 0, 0), 240);
    EXPECT_EQ(Row(dialog, 11), "12 \t999.9900\xB1\tDCS\tS\tM\tH\tWWWWWWWW");
    EXPECT_EQ(Row(dialog, 6), " 7");
    EXPECT_EQ(Row(dialog, 239).substr(0, 3), "U10");
    EXPECT_EQ(Selected(dialog), std::vector<int>{0});
    EXPECT_EQ(GetFocus(), ListOf(dialog));
    SavePicture(dialog, "memory_list");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListTest, TheListHasTheRadioFont) {
  Open([](HWND dialog) {
    const auto font = reinterpret_cast<HFONT>(SendMessageA(ListOf(dialog), WM_GETFONT, 0, 0));
    LOGFONTA description{};
    GetObjectA(font, sizeof description, &description);
    EXPECT_STREQ(description.lfFaceName, "QZ7");
    Press(dialog, IDCANCEL);
  });
}

// How many pieces of a drawn row stand apart by a whole letter.
int DrawnColumns(HWND list, int row, int letter_width) {
  RECT area{};
  SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  const HDC device = GetDC(list);
  int columns = 0;
  int blank = letter_width;
  for (int x = area.left; x < area.right; ++x) {
    bool ink = false;
    for (int y = area.top; y < area.bottom && !ink; ++y) {
      ink = GetPixel(device, x, y) != GetSysColor(COLOR_WINDOW);
    }
    columns += ink && blank >= letter_width ? 1 : 0;
    blank = ink ? 0 : blank + 1;
  }
  ReleaseDC(list, device);
  return blank > 0 ? columns : -1;  // the last one is not cut off
}

TEST_F(MemoryListTest, TheColumnsOfTheWidestRowStandApart) {
  std::uint8_t* record = GetChannelRecord(Image(), 12);
  std::fill_n(record + 2, 3, std::uint8_t{0x99});
  record[17] = 0x3F;
  SetChannelName(Image(), 12, "WWWWWWWW");
  SetSkip(Image(), 12, true);
  SetMasked(Image(), 12, true);
  Working() = Image();
  Open([](HWND dialog) {
    UpdateWindow(ListOf(dialog));
    EXPECT_EQ(DrawnColumns(ListOf(dialog), 11, 8), 7);
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListTest, OpensWhateverChannelCountTheFileStates) {
  for (const int count : {0, 1, 20, 255, 1000}) {
    WriteU16(Image().data() + kChannelCountOffset, static_cast<std::uint16_t>(count));
    Working() = Image();
    Open([&](HWND dialog) {
      EXPECT_EQ(SendMessageA(ListOf(dialog), LB_GETCOUNT, 0, 0), count);
      for (const int button : {ID_MOVE_UP, ID_DELETE_CHANNEL, ID_CLEAR_CHANNEL}) {
        Press(dialog, button);
      }
      test_seams.answers = {Answer::kYes};
      Press(dialog, IDCANCEL);
    });
    EXPECT_TRUE(Image() == Working()) << count;
  }
}

TEST_F(MemoryListTest, OpensWithTheStateAsLastAccepted) {
  Image()[9000] ^= 1;
  Open([](HWND dialog) { Press(dialog, IDCANCEL); });
  EXPECT_EQ(Image(), Working());
}

TEST_F(MemoryListTest, WithoutChangesCancelAndOkAskNothing) {
  Open([](HWND dialog) { Press(dialog, IDCANCEL); });
  Open([](HWND dialog) { Press(dialog, IDOK); });
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_FALSE(app.document.changed);
}

TEST_F(MemoryListTest, MovingDownSelectsTheChannelsNewRow) {
  AppendToGroup(Image(), 1, 11);
  Working() = Image();
  Open([](HWND dialog) {
    Select(dialog, 11);
    const std::string moved = Row(dialog, 11).substr(3);
    Press(dialog, ID_MOVE_DOWN);
    EXPECT_EQ(Selected(dialog), std::vector<int>{12});
    EXPECT_EQ(Row(dialog, 12).substr(3), moved);
    EXPECT_EQ(Row(dialog, 11), "12");
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(IsProgrammed(Image(), 13));
  EXPECT_FALSE(IsProgrammed(Image(), 12));
  EXPECT_TRUE(IsInGroup(Image(), 1, 12));
  EXPECT_EQ(ChannelComment(Image(), 13)[0], 12);
  EXPECT_TRUE(app.document.changed);
  EXPECT_EQ(Image(), Working());
}

TEST_F(MemoryListTest, TheFirstRowDoesNotMoveUpNorTheLastDown) {
  Open([](HWND dialog) {
    Select(dialog, 0);
    Press(dialog, ID_MOVE_UP);
    Select(dialog, 239);
    Press(dialog, ID_MOVE_DOWN);
    Press(dialog, ID_CLEAR_CHANNEL);
    EXPECT_EQ(Image(), Working());
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListTest, Channel220SwapsWithL1) {
  Open([](HWND dialog) {
    Select(dialog, 219);
    Press(dialog, ID_MOVE_DOWN);
    EXPECT_EQ(Selected(dialog), std::vector<int>{220});
    Press(dialog, IDOK);
  });
  EXPECT_STREQ(GetChannelName(Image(), 221).data(), "CH220   ");
  EXPECT_STREQ(GetChannelName(Image(), 220).data(), "CH221   ");
}

TEST_F(MemoryListTest, DeletingChannel220OnlyClearsItAndL1IsNotDeleted) {
  Open([](HWND dialog) {
    Select(dialog, 219);
    Press(dialog, ID_DELETE_CHANNEL);
    EXPECT_EQ(Row(dialog, 219), "220");
    const CloneImage cleared = Image();
    EXPECT_FALSE(IsProgrammed(cleared, 220));
    Select(dialog, 220);
    Press(dialog, ID_DELETE_CHANNEL);
    EXPECT_EQ(Image(), cleared);
    test_seams.answers = {Answer::kYes};
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Cancel all changes to memory channels?"});
  EXPECT_TRUE(IsProgrammed(Image(), 220));
}

TEST_F(MemoryListTest, DeletingClosesTheGapAndKeepsTheScrollPosition) {
  Open([](HWND dialog) {
    SendMessageA(ListOf(dialog), LB_SETTOPINDEX, 5, 0);
    Select(dialog, 10);
    SendMessageA(ListOf(dialog), LB_SETTOPINDEX, 5, 0);
    Press(dialog, ID_DELETE_CHANNEL);
    EXPECT_EQ(SendMessageA(ListOf(dialog), LB_GETTOPINDEX, 0, 0), 5);
    EXPECT_EQ(Selected(dialog), std::vector<int>{10});
    EXPECT_EQ(Row(dialog, 10).substr(0, 3), "11 ");
    EXPECT_EQ(Row(dialog, 218), "219\t145.5000 \t   \t \t \tL\tCH220   ");
    EXPECT_EQ(Row(dialog, 219), "220");
    EXPECT_EQ(Row(dialog, 220), "L1 \t145.5000 \t   \t \t \tL\tCH221   ");
    Press(dialog, IDOK);
  });
  EXPECT_STREQ(GetChannelName(Image(), 11).data(), "CH12    ");
}

TEST_F(MemoryListTest, InsertingAsksBeforeChannel220FallsOff) {
  AppendToGroup(Image(), 0, 4);
  Program(Image(), 5);
  Working() = Image();
  Open([](HWND dialog) {
    Select(dialog, 4);
    test_seams.answers = {Answer::kNo, Answer::kYes};
    Press(dialog, ID_INSERT_CHANNEL);
    EXPECT_EQ(Image(), Working());
    Press(dialog, ID_INSERT_CHANNEL);
    EXPECT_EQ(Row(dialog, 4), " 5");
    Press(dialog, IDOK);
  });
  const std::string question = "Memory channel 220 is active and will be deleted\nProceed?";
  EXPECT_EQ(ShownTexts(), (std::vector<std::string>{question, question}));
  EXPECT_STREQ(GetChannelName(Image(), 220).data(), "CH219   ");
  EXPECT_STREQ(GetChannelName(Image(), 6).data(), "CH5     ");
  EXPECT_FALSE(IsProgrammed(Image(), 5));
  EXPECT_FALSE(IsInGroup(Image(), 0, 4));
  EXPECT_TRUE(IsInGroup(Image(), 0, 5));
  EXPECT_STREQ(GetChannelName(Image(), 221).data(), "CH221   ");
}

TEST_F(MemoryListTest, WithoutChannel1OkSelectsItAndStaysOpen) {
  Open([](HWND dialog) {
    Select(dialog, 0);
    Press(dialog, ID_CLEAR_CHANNEL);
    Select(dialog, 100);
    Press(dialog, IDOK);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Memory channel 1 must always be programmed"});
    EXPECT_EQ(Selected(dialog), std::vector<int>{0});
    EXPECT_EQ(SendMessageA(ListOf(dialog), LB_GETTOPINDEX, 0, 0), 0);
    test_seams.answers = {Answer::kYes};
    Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(IsProgrammed(Image(), 1));
}

TEST_F(MemoryListTest, CancelGoesOnAfterNo) {
  Open([](HWND dialog) {
    Select(dialog, 1);
    Press(dialog, ID_CLEAR_CHANNEL);
    test_seams.answers = {Answer::kNo, Answer::kYes};
    Press(dialog, IDCANCEL);
    EXPECT_FALSE(IsProgrammed(Image(), 2));
    SendMessageA(dialog, WM_CLOSE, 0, 0);
  });
  EXPECT_EQ(test_seams.messages.size(), 2U);
  EXPECT_EQ(Image(), Working());
  EXPECT_TRUE(IsProgrammed(Image(), 2));
}

// As a click does it: the button has the keyboard while it is pressed.
void PressWithFocus(HWND dialog, int button) {
  SetFocus(GetDlgItem(dialog, button));
  Press(dialog, button);
}

TEST_F(MemoryListTest, AfterTheEditorTheKeyboardIsTheListsWhateverOpenedIt) {
  for (const bool by_button : {false, true}) {
    const DialogScript list([=](HWND dialog) {
      if (by_button) {
        PressWithFocus(dialog, ID_EDIT_CHANNEL);
      } else {
        SendMessageA(dialog, WM_COMMAND, ID_EDIT_CHANNEL, 0);
      }
      EXPECT_EQ(GetFocus(), ListOf(dialog)) << by_button;
      EXPECT_EQ(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), ID_EDIT_CHANNEL);
      Press(dialog, IDCANCEL);
    });
    const DialogScript editor([](HWND dialog) { Press(dialog, IDCANCEL); });
    ShowMemoryListDialog(app.document);
  }
}

TEST_F(MemoryListTest, AfterACommandOrABoxTheKeyboardIsTheLists) {
  Open([](HWND dialog) {
    for (const int button : {ID_MOVE_DOWN, ID_MOVE_UP, ID_INSERT_CHANNEL, ID_DELETE_CHANNEL,
                             ID_CLEAR_CHANNEL, IDOK, int{IDCANCEL}}) {
      test_seams.answers = {Answer::kNo};
      Select(dialog, 0);
      SetProgrammed(Image(), 1, button != IDOK);
      PressWithFocus(dialog, button);
      EXPECT_EQ(GetFocus(), ListOf(dialog)) << button;
      EXPECT_EQ(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), ID_EDIT_CHANNEL) << button;
    }
    test_seams.answers = {Answer::kYes};
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListTest, SeveralSelectedRowsAreNotEditedAndNoneAreNothing) {
  Open([](HWND dialog) {
    Select(dialog, {1, 2});
    Press(dialog, ID_EDIT_CHANNEL);
    EXPECT_EQ(ShownTexts(),
              std::vector<std::string>{"Only one channel can be selected for editing."});
    SendMessageA(ListOf(dialog), LB_SETSEL, FALSE, -1);
    for (const int button : {ID_EDIT_CHANNEL, ID_MOVE_UP, ID_MOVE_DOWN, ID_INSERT_CHANNEL,
                             ID_DELETE_CHANNEL, ID_CLEAR_CHANNEL}) {
      const int beeps = Beeps();
      Press(dialog, button);
      EXPECT_EQ(Beeps(), beeps + 1) << button;
    }
    EXPECT_EQ(Image(), Working());
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListTest, EditingRewritesTheChannelsRow) {
  const DialogScript list([](HWND dialog) {
    Select(dialog, 11);
    Press(dialog, ID_EDIT_CHANNEL);
    EXPECT_EQ(Row(dialog, 11), "12 \t433.5000 \t   \t \t \tL\tCH12    ");
    EXPECT_EQ(Selected(dialog), std::vector<int>{12});
    Press(dialog, IDOK);
  });
  const DialogScript editor([](HWND dialog) {
    Type(dialog, ID_RECEIVE, "433.5");
    Press(dialog, ID_NEXT);
    Press(dialog, IDCANCEL);
  });
  ShowMemoryListDialog(app.document);
  EXPECT_TRUE(app.document.changed);
  EXPECT_EQ(GetChannelRecord(Image(), 12)[2], 0x43);
}

TEST_F(MemoryListTest, TheMenuOpensItAndKeepsWhatASlotsEditorWrote) {
  {
    const DialogScript editor([](HWND dialog) {
      Type(dialog, ID_RECEIVE, "146.52");
      Press(dialog, IDOK);
    });
    RunCommand(CM_VFO_A_FIRST + 5);
  }
  EXPECT_TRUE(app.document.changed);
  const DialogScript list([](HWND dialog) { Press(dialog, IDCANCEL); });
  RunCommand(CM_VIEW);
  EXPECT_EQ(GetChannelRecord(Image(), -6)[3], 0x65);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(MemoryListTest, ItsBoxesHaveTheProgramsTitle) {
  Open([](HWND dialog) {
    Select(dialog, 0);
    Press(dialog, ID_INSERT_CHANNEL);
    SendMessageA(ListOf(dialog), LB_SETSEL, TRUE, 2);
    Press(dialog, ID_EDIT_CHANNEL);
    SetProgrammed(Image(), 1, false);
    Press(dialog, IDOK);
    test_seams.answers = {Answer::kYes};
    Press(dialog, IDCANCEL);
  });
  ASSERT_EQ(test_seams.messages.size(), 4U);
  for (const ShownMessage& box : test_seams.messages) {
    EXPECT_EQ(box.caption, "QZ-7H Programmer") << box.text;
  }
}

}  // namespace
}  // namespace qz7
