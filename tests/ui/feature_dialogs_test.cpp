#include "tests/ui/feature_fixture.h"

namespace qz7 {
namespace {

class SettingsDialogTest : public FeatureDialogTest {
 protected:
  SettingsDialogTest() {
    Put(Image(), 10'194, {6});                             // scale
    Put(Image(), 10'196, {0, 7, 0, 8});                    // numbers
    Put(Image(), 10'224, {1});                             // sensors
    Put(Image(), 10'242, {1, 2});                          // time, symbol
    Put(Image(), 10'244, {'O', 'L', 'D', 0, 0, 0, 0, 0});  // symbol text
    Put(Image(), 10'502, {3, 4});                          // levels
    Defaults() = {};
    Put(Defaults(), 576, {15});
    Put(Defaults(), 578, {0x01, 0x2C, 0x00, 0x2A});
    Put(Defaults(), 606, {6});
    Put(Defaults(), 624, {144, 6});
    Put(Defaults(), 626, BytesOf("DEFAULTS"));
    Put(Defaults(), 794, {15, 8});
    Put(Defaults(), 797, {0x40});
  }
};

TEST_F(SettingsDialogTest, ShowsTheImage) {
  Run(CM_SETTINGS, [](HWND dialog) {
    SavePicture(dialog, "settings");
    EXPECT_EQ(EntryText(dialog, ID_SCALE, Selection(dialog, ID_SCALE)), "1");
    EXPECT_EQ(EntryText(dialog, ID_TIME_OF_DAY, Selection(dialog, ID_TIME_OF_DAY)), " 00:10");
    EXPECT_EQ(EntryText(dialog, ID_TIME_OF_DAY, 144), " 24:00");
    EXPECT_EQ(Selection(dialog, ID_LEVEL_A), 3);
    EXPECT_EQ(Selection(dialog, ID_LEVEL_B), 4);
    EXPECT_EQ(EntryText(dialog, ID_SENSOR_DISPLAY, Selection(dialog, ID_SENSOR_DISPLAY)), "Temp");
    EXPECT_EQ(Selection(dialog, ID_DISPLAY_SYMBOL), 2);
    EXPECT_EQ(TextOf(dialog, ID_NUMBER_A), "7");
    EXPECT_EQ(TextOf(dialog, ID_NUMBER_B), "8");
    EXPECT_EQ(TextOf(dialog, ID_SYMBOL_TEXT), "OLD");
    EXPECT_TRUE(IsChecked(dialog, ID_SETTING_FIRST));
    EXPECT_TRUE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(SettingsDialogTest, EveryListHasItsEntries) {
  Run(CM_SETTINGS, [](HWND dialog) {
    const std::vector<std::pair<int, int>> counts = {{ID_LEVEL_A, 16},      {ID_LEVEL_B, 9},
                                                     {ID_SCALE, 10},        {ID_SENSOR_DISPLAY, 7},
                                                     {ID_TIME_OF_DAY, 145}, {ID_DISPLAY_SYMBOL, 7}};
    for (const auto& [list, count] : counts) {
      EXPECT_EQ(SendDlgItemMessageA(dialog, list, CB_GETCOUNT, 0, 0), count) << list;
    }
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_DISPLAY_SYMBOL, CB_GETITEMHEIGHT, 0, 0), 24);
    EXPECT_EQ(EntryText(dialog, ID_DISPLAY_SYMBOL, 6), "Chr");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(SettingsDialogTest, OkStoresEveryControlAndNothingElse) {
  CloneImage wanted = Image();
  Put(wanted, 10'194, {15});
  Put(wanted, 10'196, {0x01, 0x2C, 0x03, 0xE7});
  Put(wanted, 10'224, {6});
  Put(wanted, 10'242, {144, 6});
  Put(wanted, 10'244, {'A', 'B', 0, 0, 0, 0, 0, 0});
  Put(wanted, 10'502, {15, 8});
  wanted[10'505] |= 0x40;
  Run(CM_SETTINGS, [](HWND dialog) {
    Choose(dialog, ID_LEVEL_A, 15);
    Choose(dialog, ID_LEVEL_B, 8);
    Choose(dialog, ID_SCALE, 9);
    Choose(dialog, ID_TIME_OF_DAY, 144);
    Type(dialog, ID_NUMBER_A, "300");
    Type(dialog, ID_NUMBER_B, "9999");  // the fourth digit finds no room
    Choose(dialog, ID_SENSOR_DISPLAY, 6);
    Choose(dialog, ID_DISPLAY_SYMBOL, 6);
    Type(dialog, ID_SYMBOL_TEXT, "AB");
    Press(dialog, ID_SETTING_SECOND);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), wanted);
  EXPECT_TRUE(app.document.changed);
}

TEST_F(SettingsDialogTest, ASymbolOtherThanTheTextKeepsTheText) {
  Image()[10'243] = 6;
  Run(CM_SETTINGS, [](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, ID_SYMBOL_TEXT));
    Choose(dialog, ID_DISPLAY_SYMBOL, 0);
    EXPECT_FALSE(IsEnabled(dialog, ID_SYMBOL_TEXT));
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Piece(Image(), 10'243, 9), (Bytes{0, 'O', 'L', 'D', 0, 0, 0, 0, 0}));
}

TEST_F(SettingsDialogTest, TheSymbolTextTakes8CharactersInTheRadioFont) {
  Run(CM_SETTINGS, [](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, ID_SYMBOL_TEXT));
    Choose(dialog, ID_DISPLAY_SYMBOL, 6);
    EXPECT_TRUE(IsEnabled(dialog, ID_SYMBOL_TEXT));
    Type(dialog, ID_SYMBOL_TEXT, "123456789");
    EXPECT_EQ(TextOf(dialog, ID_SYMBOL_TEXT), "12345678");
    EXPECT_EQ(FaceOf(dialog, ID_SYMBOL_TEXT), "QZ7");
    EXPECT_EQ(FaceOf(dialog, ID_DISPLAY_SYMBOL), "QZ7");
    SavePicture(dialog, "settings_text");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Piece(Image(), 10'244, 8), BytesOf("12345678"));
}

TEST_F(SettingsDialogTest, TheSymbolTextIsEnabledByTheSymbolOfTheDefaultsToo) {
  Run(CM_SETTINGS, [](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, ID_SYMBOL_TEXT));
    Press(dialog, ID_USE_DEFAULTS);
    EXPECT_TRUE(IsEnabled(dialog, ID_SYMBOL_TEXT));
    EXPECT_TRUE(IsChecked(dialog, ID_SETTING_SECOND));
    Press(dialog, IDCANCEL);
  });
  Flags().use_setting_defaults = true;
  Run(CM_SETTINGS, [](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, ID_SYMBOL_TEXT));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(SettingsDialogTest, NumbersEndAtTheFirstCharacterThatIsNoDigit) {
  Run(CM_SETTINGS, [](HWND dialog) {
    Type(dialog, ID_NUMBER_A, "4x2");
    Type(dialog, ID_NUMBER_B, "");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Piece(Image(), 10'196, 4), (Bytes{0, 4, 0, 0}));
}

TEST_F(SettingsDialogTest, BytesWithoutAChoiceShowNothingAndStay) {
  Put(Image(), 10'194, {5});
  Put(Image(), 10'242, {145, 7});
  Put(Image(), 10'502, {16, 9});
  const CloneImage before = Image();
  Run(CM_SETTINGS, [](HWND dialog) {
    for (const int list : {ID_LEVEL_A, ID_LEVEL_B, ID_SCALE, ID_TIME_OF_DAY, ID_DISPLAY_SYMBOL}) {
      EXPECT_EQ(Selection(dialog, list), CB_ERR) << list;
    }
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), before);
}

TEST_F(SettingsDialogTest, TheSwitchDoesNotEnableTheButtons) {
  Run(CM_SETTINGS, [](HWND dialog) {
    Press(dialog, ID_USE_DEFAULTS);
    Press(dialog, ID_SETTING_FIRST);
    EXPECT_FALSE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(SettingsDialogTest, TheTooltipsNameByteAndBit) {
  Run(CM_SETTINGS, [](HWND dialog) {
    EXPECT_EQ(TooltipOf(dialog, ID_LEVEL_A), "Byte 10502");
    EXPECT_EQ(TooltipOf(dialog, ID_NUMBER_B), "Byte 10198");
    EXPECT_EQ(TooltipOf(dialog, ID_SETTING_SECOND), "Byte 10505, bit 6");
    Press(dialog, IDCANCEL);
  });
}

}  // namespace
}  // namespace qz7
