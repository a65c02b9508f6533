#include "tests/ui/feature_fixture.h"

namespace qz7 {
namespace {

class VornDialogTest : public FeatureDialogTest {
 protected:
  VornDialogTest() {
    Put(Image(), 10'205, {1});
    Put(Image(), 10'207, {0});
    Put(Image(), 10'208, Identifier());
    Image()[10'506] &= 0xF7;
    Defaults() = {};
    Put(Defaults(), 587, {2, 0, 1, 0, 1, 2, 0xFF});
    Put(Defaults(), 798, {0x08});
  }

  // ABCDEF, and behind it the end.
  static Bytes Identifier() {
    Bytes codes{10, 11, 12, 13, 14, 15};
    codes.resize(16, 0xFF);
    return codes;
  }
};

TEST_F(VornDialogTest, ShowsTheImage) {
  Run(CM_VORN, [](HWND dialog) {
    SavePicture(dialog, "vorn");
    EXPECT_FALSE(IsChecked(dialog, ID_VORN_MODE_FIRST));
    EXPECT_TRUE(IsChecked(dialog, ID_VORN_MODE_SECOND));
    EXPECT_TRUE(IsChecked(dialog, ID_VORN_SWITCH_FIRST));
    EXPECT_FALSE(IsChecked(dialog, ID_VORN_FLAG));
    EXPECT_EQ(TextOf(dialog, ID_VORN_IDENTIFIER), "ABCDEF");
    EXPECT_EQ(FaceOf(dialog, ID_VORN_IDENTIFIER), "QZ7");
    EXPECT_TRUE(ButtonsEnabled(dialog));
    EXPECT_EQ(TooltipOf(dialog, ID_VORN_MODE_THIRD), "Byte 10205");
    EXPECT_EQ(TooltipOf(dialog, ID_VORN_SWITCH_FIRST), "Byte 10506, bit 3");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(VornDialogTest, OkStoresEveryControlAndNothingElse) {
  CloneImage wanted = Image();
  Put(wanted, 10'205, {2});
  Put(wanted, 10'207, {1, 10, 11, 12});
  wanted[10'506] |= 0x08;
  Run(CM_VORN, [](HWND dialog) {
    Press(dialog, ID_VORN_MODE_THIRD);
    Press(dialog, ID_VORN_SWITCH_SECOND);
    Press(dialog, ID_VORN_FLAG);
    Type(dialog, ID_VORN_IDENTIFIER, "abc");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), wanted);
  EXPECT_TRUE(app.document.changed);
}

TEST_F(VornDialogTest, AShorterIdentifierShowsTheEndOfTheLongerOneAgain) {
  Run(CM_VORN, [](HWND dialog) {
    Type(dialog, ID_VORN_IDENTIFIER, "XY");
    Press(dialog, IDOK);
  });
  Run(CM_VORN, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_VORN_IDENTIFIER), "XYCDEF");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(VornDialogTest, AnUnknownCharacterIsStoredAs61WithoutAMessage) {
  Run(CM_VORN, [](HWND dialog) {
    Type(dialog, ID_VORN_IDENTIFIER, "?0");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Piece(Image(), 10'208, 3), (Bytes{0x61, 0, 12}));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(VornDialogTest, TheIdentifierTakes16Characters) {
  Run(CM_VORN, [](HWND dialog) {
    Type(dialog, ID_VORN_IDENTIFIER, "0123456789ABCDEFG");
    SavePicture(dialog, "vorn_full");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Piece(Image(), 10'208, 16),
            (Bytes{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
}

TEST_F(VornDialogTest, AnUnknownModeHasNoButtonAndStays) {
  Image()[10'205] = 3;
  Run(CM_VORN, [](HWND dialog) {
    EXPECT_FALSE(IsChecked(dialog, ID_VORN_MODE_FIRST));
    EXPECT_FALSE(IsChecked(dialog, ID_VORN_MODE_SECOND));
    EXPECT_FALSE(IsChecked(dialog, ID_VORN_MODE_THIRD));
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image()[10'205], 3);
  EXPECT_FALSE(app.document.changed);
}

TEST_F(VornDialogTest, SaveAsDefaultsWritesTheRecordAndCancelKeepsTheImage) {
  Defaults().fill(0xA5);
  DefaultsRecord wanted = Defaults();
  Put(wanted, 587, {0});
  Put(wanted, 589, {0, 35, 34, 12, 13, 14, 15});
  wanted[798] = 0xAD;
  const CloneImage before = Image();
  Run(CM_VORN, [](HWND dialog) {
    Press(dialog, ID_VORN_MODE_FIRST);
    Press(dialog, ID_VORN_SWITCH_SECOND);
    Type(dialog, ID_VORN_IDENTIFIER, "ZYCDEF");
    Press(dialog, ID_STORE_DEFAULTS);
    EXPECT_FALSE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(Defaults(), wanted);
  EXPECT_EQ(DefaultsOnDisk(), Bytes(wanted.begin(), wanted.end()));
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
}

class WxNamesDialogTest : public FeatureDialogTest {
 protected:
  WxNamesDialogTest() {
    Put(Image(), 10'114, Bytes(80, ' '));
    Put(Image(), 10'114, BytesOf("WX 1    "));
    Put(Image(), 10'122, BytesOf(" A  B   "));
    Put(Image(), 10'186, BytesOf("FULLNAME"));
    Put(Defaults(), 496, Bytes(80, 'd'));
    Put(Defaults(), 496, BytesOf("FIRST   "));
  }
};

TEST_F(WxNamesDialogTest, ShowsTheImageWithoutTrailingBlanks) {
  Run(CM_WX_NAMES, [](HWND dialog) {
    SavePicture(dialog, "wx_names");
    EXPECT_EQ(TextOf(dialog, ID_WX_NAME_FIRST), "WX 1");
    EXPECT_EQ(TextOf(dialog, ID_WX_NAME_FIRST + 1), " A  B");
    EXPECT_EQ(TextOf(dialog, ID_WX_NAME_FIRST + 2), "");
    EXPECT_EQ(TextOf(dialog, ID_WX_NAME_FIRST + 9), "FULLNAME");
    EXPECT_EQ(FaceOf(dialog, ID_WX_NAME_FIRST), "QZ7");
    EXPECT_EQ(FaceOf(dialog, ID_WX_NAME_FIRST + 9), "QZ7");
    EXPECT_TRUE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(WxNamesDialogTest, OkPadsTheNamesAndChangesNothingElse) {
  CloneImage wanted = Image();
  Put(wanted, 10'114, BytesOf("        "));
  Put(wanted, 10'130, BytesOf("WX 1    "));
  Put(wanted, 10'138, BytesOf("  a+\xB1   "));
  Put(wanted, 10'178, BytesOf("12345678"));
  Run(CM_WX_NAMES, [](HWND dialog) {
    Type(dialog, ID_WX_NAME_FIRST, "");
    Type(dialog, ID_WX_NAME_FIRST + 2, "WX 1");
    Type(dialog, ID_WX_NAME_FIRST + 3, "  a+\xB1");
    Type(dialog, ID_WX_NAME_FIRST + 8, "123456789");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), wanted);
  EXPECT_TRUE(app.document.changed);
}

}  // namespace
}  // namespace qz7
