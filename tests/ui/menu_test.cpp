#include <algorithm>
#include <map>

#include "desktop/commands.h"
#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

using MenuTest = WindowTest;

struct Item {
  std::string text;
  int command;
  bool operator==(const Item&) const = default;
};

void PrintTo(const Item& item, std::ostream* out) { *out << item.text << " " << item.command; }

// The items below a menu, without its separators; a submenu has the command -1.
std::vector<Item> ItemsOf(HMENU menu) {
  std::vector<Item> items;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    char text[100] = "";
    if (GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION) > 0) {
      items.push_back({text, static_cast<int>(GetMenuItemID(menu, i))});
    }
  }
  return items;
}

std::vector<Item> BandItems(int first) {
  std::vector<Item> items;
  for (const char* text : {"&MW...", "&SW...", "&FM...", "&TV...", "&6m...", "&V Ham...",
                           "&U Ham...", "&Air...", "Act&1...", "Act&2..."}) {
    items.push_back({text, first++});
  }
  return items;
}

TEST_F(MenuTest, HasItsItemsInOrder) {
  const HMENU menu = GetMenu(app.main_window);
  ASSERT_EQ(GetMenuItemCount(menu), 5);
  const std::vector<Item> file = {{"&New\tCtrl+N", 100},       {"&Open...\tCtrl+O", 101},
                                  {"&Save\tCtrl+S", 102},      {"Save &As...\tCtrl+Shift+S", 103},
                                  {"&Import...\tCtrl+I", 149}, {"&Export...\tCtrl+E", 150},
                                  {"&Print\tCtrl+P", 104},     {"E&xit", 105}};
  const std::vector<Item> radio = {{"&Get data from...\tCtrl+G", 106},
                                   {"&Send data to...\tCtrl+T", 107},
                                   {"&Com port setup...", 108},
                                   {"Create &Template...", 109}};
  const std::vector<Item> memory = {{"&View...\tCtrl+M", 110},
                                    {"&Group...", 111},
                                    {"&Merge from...", 112},
                                    {"VFO A", -1},
                                    {"VFO B", -1},
                                    {"Home", -1}};
  const std::vector<Item> other = {{"&Autodial...", 144}, {"&Settings...", 152},
                                   {"V&ORN", 153},        {"&WX Names...", 155},
                                   {"&Icon Select", 156}, {"&Preferences...", 154}};
  const std::vector<Item> help = {{"&Contents", 147},
                                  {"&Search for Help on...", 146},
                                  {"&How to Use Help", 145},
                                  {"&About...", 148}};
  EXPECT_EQ(ItemsOf(GetSubMenu(menu, 0)), file);
  EXPECT_EQ(ItemsOf(GetSubMenu(menu, 1)), radio);
  EXPECT_EQ(ItemsOf(GetSubMenu(menu, 2)), memory);
  EXPECT_EQ(ItemsOf(GetSubMenu(menu, 3)), other);
  EXPECT_EQ(ItemsOf(GetSubMenu(menu, 4)), help);
}

TEST_F(MenuTest, TheBandMenusAreSubmenusOfMemory) {
  const HMENU memory = GetSubMenu(GetMenu(app.main_window), 2);
  const int last = GetMenuItemCount(memory) - 1;
  EXPECT_EQ(ItemsOf(GetSubMenu(memory, last - 2)), BandItems(113));
  EXPECT_EQ(ItemsOf(GetSubMenu(memory, last - 1)), BandItems(123));
  EXPECT_EQ(ItemsOf(GetSubMenu(memory, last)), BandItems(133));
}

// Every command, with whether the main dialog is collected first.
std::map<int, bool> ExpectedCommands() {
  std::map<int, bool> commands;
  for (const int id : {107, 110, 111, 112, 144, 149, 150, 152, 153}) {
    commands[id] = true;
  }
  for (int id = 113; id <= 142; ++id) {
    commands[id] = true;
  }
  for (const int id :
       {100, 101, 102, 103, 104, 105, 106, 108, 109, 145, 146, 147, 148, 154, 155, 156}) {
    commands[id] = false;
  }
  return commands;
}

TEST(Commands, AreTheseAndNoOthersEachOnceAndCollectWhereTheyShould) {
  std::map<int, bool> commands;
  for (const Command& command : Commands()) {
    EXPECT_NE(command.run, nullptr);
    for (int id = command.id; id < command.id + command.count; ++id) {
      EXPECT_TRUE(commands.emplace(id, command.collects_first).second) << id;
    }
  }
  EXPECT_EQ(commands, ExpectedCommands());
}

// The commands of a menu and of all menus below it.
std::vector<int> IdsOf(HMENU menu) {
  std::vector<int> ids;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    if (const HMENU below = GetSubMenu(menu, i)) {
      const std::vector<int> more = IdsOf(below);
      ids.insert(ids.end(), more.begin(), more.end());
    } else if (const auto id = static_cast<int>(GetMenuItemID(menu, i)); id != 0) {
      ids.push_back(id);
    }
  }
  return ids;
}

TEST_F(MenuTest, HasAnItemForEveryCommandAndACommandForEveryItem) {
  std::vector<int> ids = IdsOf(GetMenu(app.main_window));
  std::sort(ids.begin(), ids.end());
  std::vector<int> expected;
  for (const auto& [id, collects] : ExpectedCommands()) {
    expected.push_back(id);
  }
  EXPECT_EQ(ids, expected);
}

// "\tCtrl+Shift+S", or nothing for a command without a key.
std::string KeyInMenu(CommandKey key) {
  return key.letter == 0 ? "" : std::string("\tCtrl+") + (key.shift ? "Shift+" : "") + key.letter;
}

TEST_F(MenuTest, ShowsTheKeyOfEachCommandBehindATabAndNoOther) {
  const HMENU menu = GetMenu(app.main_window);
  for (const Command& command : Commands()) {
    char text[100] = "";
    GetMenuStringA(menu, static_cast<UINT>(command.id), text, sizeof text, MF_BYCOMMAND);
    const std::string shown = text;
    const std::size_t tab = shown.find('\t');
    EXPECT_EQ(tab == std::string::npos ? "" : shown.substr(tab), KeyInMenu(command.key)) << shown;
  }
}

TEST_F(MenuTest, LeavesIdsWithoutAnItemToTheSystem) {
  for (const int id : {99, 143, 151, 157}) {
    EXPECT_FALSE(RunCommand(id)) << id;
  }
}

}  // namespace
}  // namespace qz7
