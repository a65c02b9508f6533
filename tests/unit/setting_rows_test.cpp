#include "core/editors/setting_rows.h"

#include <set>

#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;
using Names = std::vector<std::string>;

Names NamesOf(const SettingScreen& screen) {
  Names names;
  for (const Setting& row : screen.rows) {
    names.push_back(row.name);
  }
  return names;
}

Names Numbered(const std::string& name, int count) {
  Names names;
  for (int i = 1; i <= count; ++i) {
    names.push_back(name + "-" + std::to_string(i));
  }
  return names;
}

TEST(SettingRows, HaveNamesThatStayWhatTheyAre) {
  EXPECT_EQ(NamesOf(SettingsScreen()),
            (Names{"level-a", "level-b", "scale-value", "number-a", "number-b", "sensor-display",
                   "time-of-day", "display-symbol", "symbol-text", "settings-switch"}));
  EXPECT_EQ(NamesOf(VornScreen()),
            (Names{"vorn-mode", "vorn-switch", "vorn-flag", "vorn-identifier"}));
  EXPECT_EQ(NamesOf(WxNamesScreen()), Numbered("wx-name", 10));
  EXPECT_EQ(NamesOf(IconsScreen()), Numbered("icon", 15));
  Names autodial = Numbered("autodial", 9);
  autodial.emplace_back("autodial-flag");
  EXPECT_EQ(NamesOf(AutodialScreen()), autodial);
  Names main = {"auto-power-off", "transmit-time-out", "lock",     "bell",    "receive-saver",
                "lamp",           "option-a",          "option-b", "option-c"};
  const Names switches = Numbered("switch", 12);
  main.insert(main.end(), switches.begin(), switches.end());
  EXPECT_EQ(NamesOf(MainScreen()), main);
}

TEST(SettingRows, HaveEachANameOfItsOwn) {
  std::set<std::string> names;
  std::vector<const SettingScreen*> screens = FeatureScreens();
  screens.push_back(&MainScreen());
  for (const SettingScreen* screen : screens) {
    for (const Setting& row : screen->rows) {
      EXPECT_TRUE(names.insert(row.name).second) << row.name;
    }
  }
}

TEST(SettingRows, HaveATextForEachChoice) {
  EXPECT_EQ(TextsOf(Row("option-a")), (Names{"First", "Second", "Third"}));
  EXPECT_EQ(TextsOf(Row("vorn-switch")), (Names{"First", "Second"}));
  EXPECT_EQ(TextsOf(Row("vorn-flag")), (Names{"off", "on"}));
  EXPECT_EQ(TextsOf(Row("icon-15")).size(), 27U);
  EXPECT_EQ(TextsOf(Row("icon-15")).back(), "ZZ");
}

TEST(SettingRows, TellTheirPlaceByByteAndBit) {
  EXPECT_EQ(PlaceOf(Row("switch-1")), "Byte 10504, bit 7");
  EXPECT_EQ(PlaceOf(Row("option-a")), "Byte 10201");
  EXPECT_EQ(PlaceOf(Row("number-b")), "Byte 10198");
  EXPECT_EQ(PlaceOf(Row("icon-15")), "Byte 10239");
}

TEST(SettingRows, OpenWithTheDefaultsWhereThePreferenceSaysSo) {
  auto image = MakeImage();
  DefaultsRecord record{};
  (*image)[10502] = 3;
  record[794] = 9;
  const Setting& level = Row("level-a");
  EXPECT_EQ(LoadSetting(level, OpeningSource(*image, record, false)), Choice(3));
  EXPECT_EQ(LoadSetting(level, OpeningSource(*image, record, true)), Choice(9));
}

TEST(StoreDefaults, SavesOnceWhenAllIsInTheRecord) {
  DefaultsRecord record{};
  std::vector<std::uint8_t> saved;
  auto values = Values(VornScreen());
  values[0] = Choice(2);
  values[2] = Choice(1);
  EXPECT_EQ(StoreDefaults(VornScreen(), values, record, [&] { saved.push_back(record[589]); }),
            std::nullopt);
  EXPECT_EQ(saved, Bytes{1});
  EXPECT_EQ(record[587], 2);
}

TEST(StoreDefaults, SavesNothingWhenATextIsRefused) {
  DefaultsRecord record{};
  auto values = Values(AutodialScreen());
  values[0] = Text("1");
  values[1] = Text("x");
  int saves = 0;
  EXPECT_EQ(StoreDefaults(AutodialScreen(), values, record, [&] { ++saves; }), 1U);
  EXPECT_EQ(saves, 0);
  EXPECT_EQ(record[634], 1);
}

}  // namespace
}  // namespace qz7
