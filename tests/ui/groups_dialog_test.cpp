#include "desktop/editors/groups_dialog.h"

#include "core/editors/group_table.h"
#include "core/image/channel_record.h"
#include "core/image/settings_map.h"
#include "desktop/commands.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

CloneImage& Image() { return app.document.image; }

void Select(HWND dialog, int list, int row) {
  SendDlgItemMessageA(dialog, list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

int Count(HWND dialog, int list) {
  return static_cast<int>(SendDlgItemMessageA(dialog, list, LB_GETCOUNT, 0, 0));
}

std::string Row(HWND dialog, int list, int row) {
  char text[100] = "";
  SendDlgItemMessageA(dialog, list, LB_GETTEXT, static_cast<WPARAM>(row),
                      reinterpret_cast<LPARAM>(text));
  return text;
}

void Add(HWND dialog, int n) {
  Select(dialog, ID_GROUP_CHANNELS, n - 1);
  Press(dialog, ID_ADD_TO_GROUP);
}

void DoubleClick(HWND dialog, int list) {
  SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(list, LBN_DBLCLK),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, list)));
}

Bytes GroupBytes(int g) {
  const auto first = Image().begin() + 3110 + g * 48;
  return {first, first + 48};
}

class GroupsTest : public WindowTest {
 protected:
  GroupsTest() {
    for (int n = 2; n <= 40; ++n) {
      std::copy_n(GetChannelRecord(Image(), 1), kRecordSize, GetChannelRecord(Image(), n));
      SetProgrammed(Image(), n, true);
      SetMasked(Image(), n, false);
      SetChannelName(Image(), n, "WWWWWW" + std::to_string(n));
    }
    app.document.working_copy = Image();
  }
  static void Open(const std::function<void(HWND)>& script) {
    const DialogScript run(script);
    RunCommand(CM_GROUP);
  }
};

TEST_F(GroupsTest, StoresTheFirst24AndRefusesThe25th) {
  Open([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_GROUP), "Group 1");
    EXPECT_EQ(Count(dialog, ID_GROUP_CHANNELS), 240);
    for (int n = 2; n <= 26; ++n) {
      Add(dialog, n);
    }
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 24);
    EXPECT_EQ(Beeps(), 1);
    EXPECT_TRUE(test_seams.messages.empty());
    SavePicture(dialog, "groups");
    Press(dialog, IDOK);
  });
  Bytes wanted;
  for (std::uint8_t n = 2; n <= 25; ++n) {
    wanted.push_back(0);
    wanted.push_back(static_cast<std::uint8_t>(n - 1));
  }
  EXPECT_EQ(GroupBytes(0), wanted);
  EXPECT_EQ(Image()[3102], 0);
  EXPECT_EQ(Image()[10'487], 0);
  EXPECT_TRUE(app.document.changed);
  EXPECT_EQ(app.document.working_copy, Image());
}

TEST_F(GroupsTest, AChannelIsInAGroupOnce) {
  Open([](HWND dialog) {
    Add(dialog, 7);
    Add(dialog, 7);
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 1);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Channel can only be in the group once."});
    test_seams.answers = {Answer::kNo, Answer::kYes};
    Press(dialog, IDCANCEL);
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 1);
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(GroupBytes(0), Bytes(48, 255));
  EXPECT_FALSE(app.document.changed);
}

TEST_F(GroupsTest, AFullGroupBeepsAndSaysNothingAboutAChannelThatItHas) {
  Open([](HWND dialog) {
    for (int n = 2; n <= 25; ++n) {
      Add(dialog, n);
    }
    Add(dialog, 7);
    EXPECT_EQ(Beeps(), 1);
    EXPECT_TRUE(test_seams.messages.empty());
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 24);
    Press(dialog, IDOK);
  });
}

TEST_F(GroupsTest, BeepsBeforeItSaysThatTheGroupHasTheChannel) {
  Open([](HWND dialog) {
    Add(dialog, 7);
    int beeps_before_the_message = 0;
    test_seams.answer = [&](Buttons) {
      beeps_before_the_message = Beeps();
      return Answer::kOk;
    };
    Add(dialog, 7);
    ASSERT_EQ(test_seams.messages.size(), 1U);
    EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
    EXPECT_EQ(beeps_before_the_message, 1);
    EXPECT_EQ(Beeps(), 1);
    test_seams.answer = nullptr;
    Press(dialog, IDOK);
  });
}

// Whether any dot of a row has the colour.
bool RowShows(HWND list, int row, COLORREF colour) {
  RECT area{};
  SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  const HDC device = GetDC(list);
  bool shows = false;
  for (int y = area.top; y < area.bottom && !shows; ++y) {
    for (int x = area.left; x < area.right && !shows; ++x) {
      shows = GetPixel(device, x, y) == colour;
    }
  }
  ReleaseDC(list, device);
  return shows;
}

TEST_F(GroupsTest, RowsOfMaskedChannelsHaveTheColourOfTheOthers) {
  AppendToGroup(Image(), 0, 6);
  SetMasked(Image(), 7, true);
  app.document.working_copy = Image();
  Open([](HWND dialog) {
    SavePicture(dialog, "groups_masked");
    for (const auto& [list, row] : {std::pair{ID_GROUP_CHANNELS, 6}, {ID_GROUP_MEMBERS, 0}}) {
      const HWND window = GetDlgItem(dialog, list);
      EXPECT_TRUE(RowShows(window, row, GetSysColor(COLOR_WINDOWTEXT))) << list;
      EXPECT_FALSE(RowShows(window, row, GetSysColor(COLOR_GRAYTEXT))) << list;
    }
    Press(dialog, IDCANCEL);
  });
}

TEST_F(GroupsTest, AnUnprogrammedShownChannelIsNotAddedButCancelAsks) {
  SetProgrammed(Image(), 50, false);
  SetMasked(Image(), 50, false);
  app.document.working_copy = Image();
  Open([](HWND dialog) {
    Add(dialog, 50);
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 0);
    test_seams.answers = {Answer::kYes};
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Cancel all changes to memory channels?"});
}

TEST_F(GroupsTest, AMaskedChannelShowsItsLabelAndIsNotAdded) {
  SetMasked(Image(), 8, true);
  app.document.working_copy = Image();
  Open([](HWND dialog) {
    EXPECT_EQ(Row(dialog, ID_GROUP_CHANNELS, 7), " 8");
    EXPECT_EQ(Row(dialog, ID_GROUP_CHANNELS, 8).substr(0, 3), " 9 ");
    Add(dialog, 8);
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 0);
    Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(GroupsTest, RemovingTheLastMemberEmptiesTheGroup) {
  AppendToGroup(Image(), 0, 6);
  Image()[3102] = 0;
  app.document.working_copy = Image();
  Open([](HWND dialog) {
    Press(dialog, ID_REMOVE_FROM_GROUP);
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 1);
    Select(dialog, ID_GROUP_MEMBERS, 0);
    DoubleClick(dialog, ID_GROUP_MEMBERS);
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 0);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image()[3102], 255);
  EXPECT_EQ(GroupBytes(0), Bytes(48, 255));
}

TEST_F(GroupsTest, ADoubleClickAdds) {
  Open([](HWND dialog) {
    Select(dialog, ID_GROUP_CHANNELS, 11);
    DoubleClick(dialog, ID_GROUP_CHANNELS);
    EXPECT_EQ(Row(dialog, ID_GROUP_MEMBERS, 0), Row(dialog, ID_GROUP_CHANNELS, 11));
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(IsInGroup(Image(), 0, 11));
}

TEST_F(GroupsTest, ChangingTheGroupStoresTheListAndShowsTheOther) {
  Open([](HWND dialog) {
    Add(dialog, 3);
    Choose(dialog, ID_GROUP, 4);
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 0);
    Add(dialog, 4);
    Choose(dialog, ID_GROUP, 0);
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 1);
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(IsInGroup(Image(), 0, 2));
  EXPECT_TRUE(IsInGroup(Image(), 4, 3));
}

TEST_F(GroupsTest, TheNextGroupsFirstMemberShowsAsThe25thRowAndStays) {
  for (int index = 10; index < 34; ++index) {
    AppendToGroup(Image(), 0, index);
  }
  AppendToGroup(Image(), 1, 6);
  Image()[3102] = 0;
  Image()[3103] = 0;
  Image()[10'487] = 0;
  app.document.working_copy = Image();
  const CloneImage before = Image();
  Open([](HWND dialog) {
    EXPECT_EQ(Count(dialog, ID_GROUP_MEMBERS), 25);
    EXPECT_EQ(Row(dialog, ID_GROUP_MEMBERS, 24).substr(0, 3), " 7 ");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), before);
}

TEST_F(GroupsTest, CancelWithoutAChangeAsksNothing) {
  Open([](HWND dialog) { SendMessageA(dialog, WM_CLOSE, 0, 0); });
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_FALSE(app.document.changed);
}

TEST_F(GroupsTest, RowsAreTwoPixelsLowerThanTheFont) {
  Open([](HWND dialog) {
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_GROUP_CHANNELS, LB_GETITEMHEIGHT, 0, 0), 14);
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_GROUP_MEMBERS, LB_GETITEMHEIGHT, 0, 0), 14);
    Press(dialog, IDCANCEL);
  });
}

}  // namespace
}  // namespace qz7
