#include <windows.h>
// Behind <windows.h>.
#include <commctrl.h>

#include <set>

#include "tests/ui/memory_list_fixture.h"

// The memory list under the mouse: its menu, its tips, its size and place.
namespace qz7 {
namespace {

using Selection = std::vector<int>;

POINT MiddleOf(HWND dialog, int row) {
  RECT area{};
  SendMessageA(ListOf(dialog), LB_GETITEMRECT, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&area));
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

void SendMouse(HWND dialog, UINT message, POINT at, WPARAM keys = 0) {
  SendMessageA(ListOf(dialog), message, keys, MAKELPARAM(at.x, at.y));
}

HWND OpenMenu() { return FindWindowA("#32768", nullptr); }

HMENU MenuIn(HWND window) {
  constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the menu out as a number
  return reinterpret_cast<HMENU>(SendMessageA(window, kGetMenu, 0, 0));
}

// What to do in the next menu that opens: a key for it, 0 to give it up.
struct MenuScript {
  char key = 0;
  std::vector<std::string> entries;
  std::vector<std::string> grey;
  std::string picture;
};
MenuScript menu_script;

void CALLBACK RunMenuScript(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND window = OpenMenu();
  if (window == nullptr || IsWindowVisible(window) == FALSE) {
    return;
  }
  KillTimer(nullptr, timer);
  const HMENU menu = MenuIn(window);
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    char text[60] = "";
    const auto place = static_cast<UINT>(i);
    if (GetMenuStringA(menu, place, text, sizeof text, MF_BYPOSITION) > 0) {
      menu_script.entries.emplace_back(text);
      if ((GetMenuState(menu, place, MF_BYPOSITION) & MF_GRAYED) != 0) {
        menu_script.grey.emplace_back(text);
      }
    }
  }
  if (!menu_script.picture.empty()) {
    SavePicture(window, menu_script.picture);
  }
  const HWND owner = DialogOwner();
  if (menu_script.key != 0) {
    PostMessageA(owner, WM_CHAR, static_cast<WPARAM>(menu_script.key), 0);
  } else {
    PostMessageA(owner, WM_KEYDOWN, VK_ESCAPE, 0);
  }
}

// Opens the menu as the mouse does, over a row, and presses a key in it.
void UseMenu(HWND dialog, int row, char key, const std::string& picture = "") {
  constexpr UINT kLookInterval = 5;
  menu_script = {.key = key, .entries = {}, .grey = {}, .picture = picture};
  SetTimer(nullptr, 0, kLookInterval, RunMenuScript);
  const POINT at = MiddleOf(dialog, row);
  SendMouse(dialog, WM_RBUTTONDOWN, at, MK_RBUTTON);
  SendMouse(dialog, WM_RBUTTONUP, at);
  HandleMessages();
}

using MemoryListMenu = MemoryListTest;

TEST_F(MemoryListMenu, HasTheCommandsOfTheButtonsAndKeys) {
  Open([](HWND dialog) {
    UseMenu(dialog, 11, 0, "memory_list_menu");
    EXPECT_EQ(menu_script.entries,
              (std::vector<std::string>{
                  "&Edit...\tEnter", "&Undo\tCtrl+Z", "&Redo\tCtrl+Y", "Cu&t\tCtrl+X",
                  "&Copy\tCtrl+C", "&Paste\tCtrl+V", "&Insert\tIns", "&Delete\tDel",
                  "C&lear\tCtrl+Del", "&Move Up\tAlt+Up", "Move D&own\tAlt+Down",
                  "&Find...\tCtrl+F", "Find &Next\tF3", "Select &All\tCtrl+A"}));
    EXPECT_EQ(menu_script.grey, (std::vector<std::string>{"&Undo\tCtrl+Z", "&Redo\tCtrl+Y"}));
    EXPECT_EQ(Image(), Working());
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListMenu, TheKeysThatItShowsDoTheSame) {
  Open([](HWND dialog) {
    std::set<char> letters;
    UseMenu(dialog, 11, 0);
    for (const std::string& entry : menu_script.entries) {
      EXPECT_TRUE(letters.insert(entry[entry.find('&') + 1]).second) << entry;
    }
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListMenu, WorksOnTheRowUnderThePointer) {
  Open([](HWND dialog) {
    Select(dialog, 1);
    UseMenu(dialog, 11, 'm');
    EXPECT_EQ(Selected(dialog), Selection{10});
    EXPECT_TRUE(IsProgrammed(Image(), 11));
    EXPECT_FALSE(IsProgrammed(Image(), 12));
    UseMenu(dialog, 10, 'u');
    EXPECT_EQ(Image(), Working());
    EXPECT_EQ(Selected(dialog), Selection{11});
    UseMenu(dialog, 11, 0);
    EXPECT_EQ(menu_script.grey, std::vector<std::string>{"&Undo\tCtrl+Z"});
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListMenu, WorksOnAllSelectedRowsOverOneOfThem) {
  Open([](HWND dialog) {
    Select(dialog, {1, 2});
    UseMenu(dialog, 2, 'l');
    EXPECT_EQ(Selected(dialog), (Selection{1, 2}));
    EXPECT_FALSE(IsProgrammed(Image(), 2));
    EXPECT_FALSE(IsProgrammed(Image(), 3));
    Drop(dialog);
  });
}

TEST_F(MemoryListTest, ClicksSelectSeveralRows) {
  Open([](HWND dialog) {
    const auto click = [&](int row, WPARAM keys) {
      SendMouse(dialog, WM_LBUTTONDOWN, MiddleOf(dialog, row), keys | MK_LBUTTON);
      SendMouse(dialog, WM_LBUTTONUP, MiddleOf(dialog, row), keys);
    };
    click(1, 0);
    click(3, MK_SHIFT);
    EXPECT_EQ(Selected(dialog), (Selection{1, 2, 3}));
    click(5, MK_CONTROL);
    EXPECT_EQ(Selected(dialog), (Selection{1, 2, 3, 5}));
    Press(dialog, ID_CLEAR_CHANNEL);
    EXPECT_FALSE(IsProgrammed(Image(), 3));
    Drop(dialog);
  });
}

struct FoundTip {
  HWND window = nullptr;
  std::string text;
  RECT area{};
};

BOOL CALLBACK LookForTip(HWND window, LPARAM found) {
  auto& [tip, text, area] = *reinterpret_cast<FoundTip*>(found);
  TOOLINFOA tool{};
  char room[200] = "";
  tool.cbSize = sizeof tool;
  tool.hwnd = ListOf(GetWindow(window, GW_OWNER));
  tool.uId = 1;
  tool.lpszText = room;
  char kind[40] = "";
  GetClassNameA(window, kind, sizeof kind);
  if (std::string(kind) == TOOLTIPS_CLASSA && tool.hwnd != nullptr &&
      SendMessageA(window, TTM_GETTOOLINFOA, 0, reinterpret_cast<LPARAM>(&tool)) != 0) {
    tip = window;
    text = room;
    area = tool.rect;
  }
  return TRUE;
}

FoundTip TipOver(HWND dialog, int row) {
  SendMouse(dialog, WM_MOUSEMOVE, MiddleOf(dialog, row));
  FoundTip found;
  EnumThreadWindows(GetCurrentThreadId(), LookForTip, reinterpret_cast<LPARAM>(&found));
  return found;
}

TEST_F(MemoryListTest, ThePointerOverARowTellsWhatHasNoRoomInIt) {
  ChannelComment(Image(), 2)[0] = 'X';
  GetChannelRecord(Image(), 2)[17] = 0x11;
  GetChannelRecord(Image(), 2)[15] = 0x06;
  Working() = Image();
  Open([](HWND dialog) {
    const FoundTip tip = TipOver(dialog, 1);
    EXPECT_EQ(tip.text, "Transmit 144.9000 MHz\nTone Encode 67.0 Hz\nX");
    EXPECT_TRUE(PtInRect(&tip.area, MiddleOf(dialog, 1)));
    EXPECT_EQ(TipOver(dialog, 5).text, "");
    TipOver(dialog, 1);
    Select(dialog, 0);
    Press(dialog, ID_MOVE_DOWN);
    EXPECT_EQ(TipOver(dialog, 0).text, "Transmit 144.9000 MHz\nTone Encode 67.0 Hz\nX");
    Drop(dialog);
  });
}

TEST_F(MemoryListTest, TheTipComesUpUnderThePointer) {
  Open([](HWND dialog) {
    SetForegroundWindow(dialog);
    POINT at = MiddleOf(dialog, 1);
    ClientToScreen(ListOf(dialog), &at);
    const HWND tip = TipOver(dialog, 1).window;
    SetCursorPos(at.x, at.y);
    EXPECT_TRUE(HandleMessagesUntil([&] { return IsWindowVisible(tip) != FALSE; }));
    SavePicture(tip, "memory_list_tip");
    Press(dialog, IDCANCEL);
  });
}

RECT AreaIn(HWND dialog, int control) {
  RECT area{};
  GetWindowRect(GetDlgItem(dialog, control), &area);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

RECT AreaOf(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return area;
}

bool SameArea(const RECT& a, const RECT& b) { return EqualRect(&a, &b) != FALSE; }

void Resize(HWND dialog, int by_x, int by_y) {
  const RECT area = AreaOf(dialog);
  SetWindowPos(dialog, nullptr, 0, 0, area.right - area.left + by_x, area.bottom - area.top + by_y,
               SWP_NOMOVE | SWP_NOZORDER);
}

TEST_F(MemoryListTest, ALargerWindowGivesItsRoomToTheList) {
  Open([](HWND dialog) {
    const RECT list = AreaIn(dialog, ID_CHANNEL_LIST);
    const RECT edit = AreaIn(dialog, ID_EDIT_CHANNEL);
    const RECT ok = AreaIn(dialog, IDOK);
    const RECT header = AreaIn(dialog, ID_CHANNEL_HEADER);
    Resize(dialog, 50, 70);
    EXPECT_TRUE(SameArea(AreaIn(dialog, ID_CHANNEL_LIST),
                         {list.left, list.top, list.right + 50, list.bottom + 70}));
    EXPECT_TRUE(SameArea(AreaIn(dialog, ID_CHANNEL_HEADER),
                         {header.left, header.top, header.right + 50, header.bottom}));
    EXPECT_TRUE(SameArea(AreaIn(dialog, ID_EDIT_CHANNEL),
                         {edit.left + 50, edit.top, edit.right + 50, edit.bottom}));
    EXPECT_TRUE(
        SameArea(AreaIn(dialog, IDOK), {ok.left + 50, ok.top + 70, ok.right + 50, ok.bottom + 70}));
    SavePicture(dialog, "memory_list_large");
    Resize(dialog, -50, -70);
    EXPECT_TRUE(SameArea(AreaIn(dialog, ID_CHANNEL_LIST), list));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListTest, TheWindowGetsNoSmallerThanItsTemplate) {
  Open([](HWND dialog) {
    const RECT area = AreaOf(dialog);
    Resize(dialog, -100, -100);
    EXPECT_TRUE(SameArea(AreaOf(dialog), area));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListTest, OpensWhereItWasLeft) {
  RECT left{};
  Open([&](HWND dialog) {
    Resize(dialog, 40, 30);
    SetWindowPos(dialog, nullptr, 17, 23, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    left = AreaOf(dialog);
    EXPECT_EQ(left.left, 17);
    Press(dialog, IDOK);
  });
  Open([&](HWND dialog) {
    EXPECT_TRUE(SameArea(AreaOf(dialog), left));
    const RECT list = AreaIn(dialog, ID_CHANNEL_LIST);
    Resize(dialog, -40, 0);
    EXPECT_EQ(AreaIn(dialog, ID_CHANNEL_LIST).right, list.right - 40);
    Press(dialog, IDCANCEL);
  });
}

TEST_F(MemoryListTest, WhereNothingWasMovedNothingIsRemembered) {
  Open([](HWND dialog) { Press(dialog, IDCANCEL); });
  EXPECT_EQ(test_seams.profile.count("MemoryListPlace"), 0U);
}

TEST_F(MemoryListTest, APlaceOutsideTheScreenIsBroughtIntoIt) {
  for (const char* place :
       {"-9000 -9000 500 500", "90000 90000 500 500", "10 10 90000 500", "0 0 1 1"}) {
    test_seams.profile["MemoryListPlace"] = place;
    Open([&](HWND dialog) {
      RECT screen{};
      SystemParametersInfoA(SPI_GETWORKAREA, 0, &screen, 0);
      const RECT area = AreaOf(dialog);
      RECT common{};
      IntersectRect(&common, &area, &screen);
      EXPECT_TRUE(SameArea(common, area))
          << place << ": " << area.left << " " << area.top << " " << area.right << " "
          << area.bottom << " in " << screen.right << " x " << screen.bottom;
      Press(dialog, IDCANCEL);
    });
  }
}

}  // namespace
}  // namespace qz7
