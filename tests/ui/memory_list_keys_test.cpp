#include "tests/ui/memory_list_fixture.h"

// The memory list under the hands of a user: keys, several rows, the way back, finding.
namespace qz7 {
namespace {

using Selection = std::vector<int>;

// The numbers in the names of the first channels; 0 for an empty one.
Selection Numbers(int count) {
  Selection numbers;
  for (int n = 1; n <= count; ++n) {
    const std::string name = GetChannelName(Image(), n).data();
    numbers.push_back(IsProgrammed(Image(), n) ? std::atoi(name.c_str() + 2) : 0);
  }
  return numbers;
}

class MemoryListKeys : public MemoryListTest {
 protected:
  MemoryListKeys() {
    for (int n = 1; n <= 9; ++n) {
      Program(Image(), n);
    }
    SetProgrammed(Image(), 220, false);
    Working() = Image();
  }
};

TEST_F(MemoryListKeys, MoveSeveralRowsAndTheSelectionGoesAlong) {
  Open([](HWND dialog) {
    Select(dialog, {2, 3, 5});
    Key(dialog, VK_UP, kAlt);
    EXPECT_EQ(Numbers(7), (Selection{1, 3, 4, 2, 6, 5, 7}));
    EXPECT_EQ(Selected(dialog), (Selection{1, 2, 4}));
    EXPECT_EQ(Row(dialog, 1).substr(0, 3), " 2 ");
    Key(dialog, VK_DOWN, kCtrl);
    EXPECT_EQ(Selected(dialog), (Selection{2, 3, 5}));
    EXPECT_EQ(Image(), Working());
    Key(dialog, VK_DOWN, kAlt);
    Key(dialog, VK_UP, kCtrl);
    EXPECT_EQ(Image(), Working());
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListKeys, DeleteClosesTheGapAndCtrlDeleteClearsInPlace) {
  Open([](HWND dialog) {
    Select(dialog, {2, 4});
    Key(dialog, VK_DELETE);
    EXPECT_EQ(Numbers(5), (Selection{1, 2, 4, 6, 7}));
    EXPECT_EQ(Selected(dialog), Selection{2});
    EXPECT_EQ(Row(dialog, 3).substr(0, 13), " 4 \t145.5000 ");
    Select(dialog, {0, 1});
    Key(dialog, VK_DELETE, kCtrl);
    EXPECT_EQ(Numbers(5), (Selection{0, 0, 4, 6, 7}));
    EXPECT_EQ(Selected(dialog), (Selection{0, 1}));
    EXPECT_EQ(Row(dialog, 1), " 2");
    Drop(dialog);
  });
}

TEST_F(MemoryListKeys, InsertPutsOneChannelBeforeTheFirstRow) {
  Open([](HWND dialog) {
    Select(dialog, {2, 4});
    Key(dialog, VK_INSERT);
    EXPECT_EQ(Numbers(6), (Selection{1, 2, 0, 3, 4, 5}));
    EXPECT_EQ(Selected(dialog), Selection{2});
    EXPECT_TRUE(test_seams.messages.empty());
    Drop(dialog);
  });
}

TEST_F(MemoryListKeys, ARowThatRefusesLeavesTheOthersAlone) {
  Open([](HWND dialog) {
    Select(dialog, {0, 4});
    Key(dialog, VK_UP, kAlt);
    EXPECT_EQ(Beeps(), 1);
    EXPECT_EQ(Image(), Working());
    EXPECT_EQ(Selected(dialog), (Selection{0, 4}));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListKeys, TheListKeepsItsOwnKeys) {
  Open([](HWND dialog) {
    Select(dialog, 11);
    Key(dialog, VK_DOWN);
    EXPECT_EQ(Selected(dialog), Selection{12});
    Key(dialog, VK_END);
    EXPECT_EQ(Selected(dialog), Selection{239});
    Key(dialog, VK_HOME);
    EXPECT_EQ(Selected(dialog), Selection{0});
    Key(dialog, VK_DOWN, kShift);
    EXPECT_EQ(Selected(dialog), (Selection{0, 1}));
    Key(dialog, 'A', kCtrl);
    EXPECT_EQ(Selected(dialog).size(), 240U);
    EXPECT_EQ(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), ID_EDIT_CHANNEL);
    EXPECT_EQ(Image(), Working());
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListKeys, StepsAreTakenBackAndDoneAgain) {
  Open([](HWND dialog) {
    Key(dialog, 'Z', kCtrl);
    EXPECT_EQ(Beeps(), 1);
    Select(dialog, {2, 3});
    Key(dialog, VK_DELETE);
    Select(dialog, 0);
    Key(dialog, VK_DOWN, kAlt);
    Key(dialog, 'Z', kCtrl);
    EXPECT_EQ(Selected(dialog), Selection{0});
    Key(dialog, 'Z', kCtrl);
    EXPECT_EQ(Image(), Working());
    EXPECT_EQ(Selected(dialog), (Selection{2, 3}));
    EXPECT_EQ(Row(dialog, 2).substr(0, 3), " 3 ");
    Key(dialog, 'Y', kCtrl);
    EXPECT_EQ(Numbers(4), (Selection{1, 2, 5, 6}));
    EXPECT_EQ(Row(dialog, 3).substr(Row(dialog, 3).size() - 8), "CH6     ");
    Key(dialog, 'Y', kCtrl);
    EXPECT_EQ(Numbers(4), (Selection{2, 1, 5, 6}));
    Key(dialog, 'Y', kCtrl);
    EXPECT_EQ(Beeps(), 2);
    Drop(dialog);
  });
}

TEST_F(MemoryListKeys, BackAtTheStartCancelAsksNothing) {
  Open([](HWND dialog) {
    for (int i = 0; i < 120; ++i) {
      Key(dialog, VK_DOWN, kAlt);
    }
    EXPECT_EQ(Selected(dialog), Selection{120});
    for (int i = 0; i < 120; ++i) {
      Key(dialog, 'Z', kCtrl);
    }
    EXPECT_EQ(Selected(dialog), Selection{0});
    Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(Beeps(), 0);
}

TEST_F(MemoryListKeys, WhatTheEditorWroteIsTakenBackChannelByChannel) {
  const DialogScript list([](HWND dialog) {
    Select(dialog, 11);
    Press(dialog, ID_EDIT_CHANNEL);
    EXPECT_EQ(Row(dialog, 11).substr(0, 13), "12 \t433.5000 ");
    EXPECT_EQ(Row(dialog, 12).substr(0, 13), "13 \t145.7000 ");
    Key(dialog, 'Z', kCtrl);
    EXPECT_EQ(Row(dialog, 12), "13");
    EXPECT_EQ(Row(dialog, 11).substr(0, 13), "12 \t433.5000 ");
    Key(dialog, 'Z', kCtrl);
    EXPECT_EQ(Row(dialog, 11).substr(0, 13), "12 \t145.5000 ");
    EXPECT_EQ(Image(), Working());
    Press(dialog, IDCANCEL);
  });
  const DialogScript editor([](HWND dialog) {
    Type(dialog, ID_RECEIVE, "433.5");
    Press(dialog, ID_NEXT);
    Type(dialog, ID_RECEIVE, "145.7");
    Press(dialog, IDOK);
  });
  app.document.changed = false;
  ShowMemoryListDialog(app.document);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_FALSE(app.document.changed) << "nothing is left of what the editor wrote";
}

// As typed: each character to the list that has the keyboard.
void TypeInList(HWND dialog, const std::string& text) {
  for (const char c : text) {
    SendMessageA(ListOf(dialog), WM_CHAR, static_cast<unsigned char>(c), 0);
  }
}

TEST_F(MemoryListKeys, ATypedNumberGoesToItsChannelAndOneRowIsSelected) {
  Open([](HWND dialog) {
    Select(dialog, {11, 30});
    TypeInList(dialog, "219");
    EXPECT_EQ(Selected(dialog), Selection{218});
    EXPECT_LE(SendMessageA(ListOf(dialog), LB_GETTOPINDEX, 0, 0), 218);
    EXPECT_EQ(SendMessageA(ListOf(dialog), LB_GETCARETINDEX, 0, 0), 218);
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListKeys, TypedLettersGoToTheNextNameThatBeginsSo) {
  SetChannelName(Image(), 12, "Ulm");
  Working() = Image();
  Open([](HWND dialog) {
    TypeInList(dialog, "u");
    EXPECT_EQ(Selected(dialog), Selection{11});
    TypeInList(dialog, "x");
    EXPECT_EQ(Selected(dialog), Selection{11});
    EXPECT_EQ(Beeps(), 1);
    TypeInList(dialog, "\x03 ");
    EXPECT_EQ(Selected(dialog), Selection{11});
    EXPECT_EQ(Beeps(), 1);
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListKeys, CtrlFFindsAndF3FindsTheNext) {
  const DialogScript list([](HWND dialog) {
    Key(dialog, 'F', kCtrl);
    EXPECT_EQ(Selected(dialog), Selection{11});
    Key(dialog, VK_F3);
    EXPECT_EQ(Selected(dialog), Selection{220});
    Key(dialog, VK_F3);
    EXPECT_EQ(Selected(dialog), Selection{11});
    EXPECT_EQ(GetFocus(), ListOf(dialog));
    Press(dialog, IDCANCEL);
  });
  const DialogScript find([](HWND dialog) {
    SavePicture(dialog, "find_channel");
    Type(dialog, ID_FIND_TEXT, "439.0");
    Press(dialog, IDOK);
  });
  for (const int n : {12, 221}) {
    GetChannelRecord(Image(), n)[2] = 0x43;
    GetChannelRecord(Image(), n)[3] = 0x90;
  }
  Working() = Image();
  ShowMemoryListDialog(app.document);
}

TEST_F(MemoryListKeys, WhatIsNotFoundIsSaid) {
  const DialogScript list([](HWND dialog) {
    Select(dialog, 5);
    Key(dialog, VK_F3);
    EXPECT_EQ(Selected(dialog), Selection{5});
    Press(dialog, IDCANCEL);
  });
  const DialogScript find([](HWND dialog) {
    Type(dialog, ID_FIND_TEXT, "Paris");
    Press(dialog, IDOK);
  });
  ShowMemoryListDialog(app.document);
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"Not found in any name, comment or frequency:\nParis"});
}

}  // namespace
}  // namespace qz7
