#include "tests/ui/feature_fixture.h"

namespace qz7 {
namespace {

constexpr const char* kTooLong = "Too many digits in phone number\nPlease limit to 16 digits";
constexpr const char* kInvalid = "Invalid digit in number\nPlease use 0-9, A-F, #, *, or -";

Bytes Number(Bytes digits) {
  digits.resize(16, 0xFF);
  return digits;
}

class AutodialDialogTest : public FeatureDialogTest {
 protected:
  AutodialDialogTest() {
    app.dtmf_display = DtmfDisplay::kSymbols;
    Put(Image(), 10'252, Bytes(144, 0xFF));
    Put(Image(), 10'252, {5, 5, 5, 1, 2, 3, 4});
    Put(Image(), 10'268, {14, 15});
    Put(Image(), 10'380, {1, 5, 5, 5, 5, 5, 5, 1, 2, 3, 4});
    Image()[10'504] &= 0xFE;
    Defaults() = {};
    Put(Defaults(), 634, Bytes(144, 0xFF));
    Put(Defaults(), 634, {9, 14});
    Put(Defaults(), 796, {1});
  }
  ~AutodialDialogTest() override { app.dtmf_display = DtmfDisplay::kSymbols; }

  static Bytes Memory(int n) {
    return Piece(Image(), 10'252U + static_cast<std::size_t>(n) * 16, 16);
  }
};

TEST_F(AutodialDialogTest, ShowsTheImage) {
  Run(CM_AUTODIAL, [](HWND dialog) {
    SavePicture(dialog, "autodial");
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST), "555-1234");
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST + 1), "*#");
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST + 2), "");
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST + 8), "1-555-555-1234");
    EXPECT_FALSE(IsChecked(dialog, ID_AUTODIAL_FLAG));
    EXPECT_TRUE(IsChecked(dialog, ID_DTMF_SYMBOLS));
    EXPECT_TRUE(ButtonsEnabled(dialog));
    EXPECT_EQ(TooltipOf(dialog, ID_AUTODIAL_FLAG), "Byte 10504, bit 0");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(AutodialDialogTest, OkStoresTheNumbersAndTheFlagAndNothingElse) {
  CloneImage wanted = Image();
  Put(wanted, 10'252, Number({}));
  Put(wanted, 10'284, Number({5, 5, 5, 1, 2, 3, 4}));
  Put(wanted, 10'300, Number({1, 5, 5, 5, 5, 5, 5, 1, 2, 3, 4}));
  Put(wanted, 10'316, Number({14, 15, 10, 13}));
  wanted[10'504] |= 0x01;
  Run(CM_AUTODIAL, [](HWND dialog) {
    Type(dialog, ID_AUTODIAL_FIRST, "");
    Type(dialog, ID_AUTODIAL_FIRST + 2, "555-1234");
    Type(dialog, ID_AUTODIAL_FIRST + 3, "1 555 555 1234");
    Type(dialog, ID_AUTODIAL_FIRST + 4, "*#AD");
    Press(dialog, ID_AUTODIAL_FLAG);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), wanted);
  EXPECT_TRUE(app.document.changed);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(AutodialDialogTest, AFieldTakes16Characters) {
  Run(CM_AUTODIAL, [](HWND dialog) {
    Type(dialog, ID_AUTODIAL_FIRST, "01234567890123456");
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST), "0123456789012345");
    Type(dialog, ID_AUTODIAL_FIRST + 1, "1 (555) 555-12345");
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST + 1), "1 (555) 555-1234");
    Type(dialog, ID_AUTODIAL_FIRST + 1, "");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Memory(0), (Bytes{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1, 2, 3, 4, 5}));
}

TEST_F(AutodialDialogTest, APasteThatDoesNotGoInWholeBeepsAndChangesNothing) {
  Run(CM_AUTODIAL, [](HWND dialog) {
    const HWND first = GetDlgItem(dialog, ID_AUTODIAL_FIRST);
    Press(dialog, ID_USE_DEFAULTS);
    PutPlainText("0049 30 123 456 78");
    for (const auto& [message, key] : {std::pair{WM_PASTE, 0}, std::pair{WM_CHAR, 0x16}}) {
      SendMessageA(first, static_cast<UINT>(message), static_cast<WPARAM>(key), 0);
      EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST), "9*");
    }
    EXPECT_EQ(Beeps(), 2);
    EXPECT_FALSE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(AutodialDialogTest, APasteThatGoesInWholeTakesTheSelectionsPlace) {
  Run(CM_AUTODIAL, [](HWND dialog) {
    const HWND first = GetDlgItem(dialog, ID_AUTODIAL_FIRST);
    PutPlainText("0123456789ABCDEF\r\nnext line");
    SendMessageA(first, EM_SETSEL, 0, -1);
    SendMessageA(first, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST), "0123456789ABCDEF");
    SendMessageA(first, EM_SETSEL, 14, 16);
    PutPlainText("*#");
    SendMessageA(first, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST), "0123456789ABCD*#");
    SendMessageA(first, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST), "0123456789ABCD*#");
    EXPECT_EQ(Beeps(), 1);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Memory(0), (Bytes{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
}

TEST_F(AutodialDialogTest, AnInvalidDigitIsRefusedWithTheFocusOnItsField) {
  const CloneImage before = Image();
  Run(CM_AUTODIAL, [](HWND dialog) {
    for (const char* text : {"1 (555) 555-1234", "a", "12G"}) {
      Type(dialog, ID_AUTODIAL_FIRST + 3, text);
      SetFocus(GetDlgItem(dialog, IDOK));
      Press(dialog, IDOK);
      EXPECT_TRUE(IsWindowVisible(dialog)) << text;
      EXPECT_EQ(GetFocus(), GetDlgItem(dialog, ID_AUTODIAL_FIRST + 3)) << text;
    }
    EXPECT_EQ(ShownTexts(), (std::vector<std::string>(3, kInvalid)));
    EXPECT_EQ(test_seams.messages[0].caption, "Input Error");
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
}

TEST_F(AutodialDialogTest, WhatARefusedOkHasStoredGoesOnCancelAndWhenItIsClosed) {
  const CloneImage before = Image();
  for (const bool by_button : {true, false}) {
    Run(CM_AUTODIAL, [by_button](HWND dialog) {
      Type(dialog, ID_AUTODIAL_FIRST, "77");
      Type(dialog, ID_AUTODIAL_FIRST + 3, "x");
      Press(dialog, IDOK);
      EXPECT_EQ(Piece(app.document.working_copy, 10'252, 16), Number({7, 7}));
      by_button ? Press(dialog, IDCANCEL) : void(SendMessageA(dialog, WM_CLOSE, 0, 0));
    });
    EXPECT_EQ(Image(), before);
    EXPECT_EQ(app.document.working_copy, before);
    EXPECT_FALSE(app.document.changed);
  }
}

TEST_F(AutodialDialogTest, ATextThatWasNotTypedCanBeTooLong) {
  Run(CM_AUTODIAL, [](HWND dialog) {
    SetDlgItemTextA(dialog, ID_AUTODIAL_FIRST + 1, "1234-5678-9012-34567");
    Press(dialog, IDOK);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{kTooLong});
    EXPECT_EQ(test_seams.messages[0].caption, "Input Error");
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, ID_AUTODIAL_FIRST + 1));
    SetDlgItemTextA(dialog, ID_AUTODIAL_FIRST + 1, "1234-5678-9012-3456");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Memory(1), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1, 2, 3, 4, 5, 6}));
}

TEST_F(AutodialDialogTest, TheDisplayOptionRewritesTheFieldsAtOnceAndStaysForTheRun) {
  const CloneImage before = Image();
  Run(CM_AUTODIAL, [](HWND dialog) {
    Press(dialog, ID_USE_DEFAULTS);
    Press(dialog, ID_DTMF_SYMBOLS);
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST), "9E");
    EXPECT_FALSE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(app.dtmf_display, DtmfDisplay::kLetters);
  Run(CM_AUTODIAL, [](HWND dialog) {
    EXPECT_FALSE(IsChecked(dialog, ID_DTMF_SYMBOLS));
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST + 1), "EF");
    Press(dialog, ID_DTMF_SYMBOLS);
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST + 1), "*#");
    EXPECT_EQ(TextOf(dialog, ID_AUTODIAL_FIRST + 8), "1-555-555-1234");
    EXPECT_TRUE(ButtonsEnabled(dialog));
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
}

TEST_F(AutodialDialogTest, SaveAsDefaultsRefusesAnInvalidNumber) {
  Run(CM_AUTODIAL, [](HWND dialog) {
    Type(dialog, ID_AUTODIAL_FIRST + 4, "x");
    Press(dialog, ID_STORE_DEFAULTS);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{kInvalid});
    EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, ID_AUTODIAL_FIRST + 4));
    EXPECT_TRUE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(folder.Names().empty());
  // The numbers before it are in the record by then.
  EXPECT_EQ(Piece(Defaults(), 634, 16), Number({5, 5, 5, 1, 2, 3, 4}));
}

}  // namespace
}  // namespace qz7
