#include "desktop/editors/channel_editor_dialog.h"

#include "core/editors/group_table.h"
#include "core/editors/icons.h"
#include "core/image/channel_record.h"
#include "desktop/commands.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

CloneImage& Image() { return app.document.image; }

std::vector<std::uint8_t> RecordOf(int n) {
  const std::uint8_t* record = GetChannelRecord(Image(), n);
  return {record, record + kRecordSize};
}

std::string Title(HWND dialog) {
  char text[100] = "";
  GetWindowTextA(dialog, text, sizeof text);
  return text;
}

void Focus(HWND dialog, int control) {
  SetFocus(GetDlgItem(dialog, control));
  HandleMessages();
}

bool HasFocus(HWND dialog, int control) {
  const HWND window = GetDlgItem(dialog, control);
  return GetFocus() == window || GetParent(GetFocus()) == window;
}

HWND OffsetText(HWND dialog) { return GetWindow(GetDlgItem(dialog, ID_OFFSET), GW_CHILD); }

// The edit field inside the offset list.
void TypeOffsetText(HWND dialog, const std::string& text) {
  Focus(dialog, ID_OFFSET);
  SetWindowTextA(OffsetText(dialog), "");
  for (const char c : text) {
    SendMessageA(OffsetText(dialog), WM_CHAR, static_cast<unsigned char>(c), 0);
  }
}

int Selection(HWND dialog, int control) {
  return static_cast<int>(SendDlgItemMessageA(dialog, control, CB_GETCURSEL, 0, 0));
}

class ChannelEditorTest : public WindowTest {
 protected:
  static bool Edit(int n, const std::function<void(HWND)>& script) {
    const DialogScript run(script);
    return ShowChannelEditorDialog(app.document, n);
  }
};

TEST_F(ChannelEditorTest, WritesEveryFieldOfANewChannel) {
  EXPECT_TRUE(Edit(7, [](HWND dialog) {
    EXPECT_EQ(Title(dialog), "Edit Memory Channel  7");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "");
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT), "");
    EXPECT_EQ(TextOf(dialog, ID_OFFSET), "600 kHz");
    EXPECT_EQ(Selection(dialog, ID_POWER), 3);
    EXPECT_EQ(Selection(dialog, ID_TONE), 12);
    Type(dialog, ID_RECEIVE, "145.0125");
    Press(dialog, ID_SHIFT_MINUS);
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT), "144.4125");
    Choose(dialog, ID_TONE_TYPE, 2);
    Choose(dialog, ID_TONE, 1);
    Choose(dialog, ID_DCS, 103);
    Choose(dialog, ID_POWER, 1);
    Choose(dialog, ID_MODE, 1);
    Press(dialog, ID_OPTION_A);
    Press(dialog, ID_OPTION_FLAG);
    Press(dialog, ID_SKIP);
    Type(dialog, ID_NAME, "WWWWWWWWX");
    Type(dialog, ID_COMMENT, std::string(40, 'W'));
    SendDlgItemMessageA(dialog, ID_ICON, LB_SETCURSEL, 26, 0);
    SavePicture(dialog, "edit_memory");
    Press(dialog, IDOK);
  }));
  const std::vector<std::uint8_t> record = RecordOf(7);
  EXPECT_EQ(record[0] & 0x13, 0x11);  // grid class 1, option A
  EXPECT_EQ(record[2], 0x14);
  EXPECT_EQ(record[3], 0x50);
  EXPECT_EQ(record[4], 0x12);
  EXPECT_EQ(record[5], 26 << 2 | 1);
  EXPECT_EQ(std::string(record.begin() + 6, record.begin() + 14), "WWWWWWWW");
  EXPECT_EQ(record[14], 0x00);
  EXPECT_EQ(record[15], 0x06);
  EXPECT_EQ(record[16], 0x00);
  EXPECT_EQ(record[17], 0x25);
  EXPECT_EQ(record[18], 1);
  EXPECT_EQ(record[19], 103);
  EXPECT_EQ(*GetChannelFlagByte(Image(), 7) & 0x0F, 0x0F);
  EXPECT_EQ(ChannelCommentText(Image(), 7), std::string(31, 'W'));
  EXPECT_TRUE(app.document.changed);
}

TEST_F(ChannelEditorTest, OkAtOnceLeavesEveryByteOfEverySlot) {
  const CloneImage before = Image();
  for (int n = -30; n <= -1; ++n) {
    EXPECT_TRUE(Edit(n, [](HWND dialog) { Press(dialog, IDOK); })) << n;
    EXPECT_TRUE(Image() == before) << n;
  }
  EXPECT_FALSE(app.document.changed);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(ChannelEditorTest, CancelAndClosingWriteNothing) {
  const CloneImage before = Image();
  EXPECT_FALSE(Edit(1, [](HWND dialog) {
    Type(dialog, ID_NAME, "X");
    Press(dialog, ID_MASKED);
    Press(dialog, IDCANCEL);
  }));
  EXPECT_FALSE(Edit(-6, [](HWND dialog) {
    Type(dialog, ID_RECEIVE, "146");
    SendMessageA(dialog, WM_CLOSE, 0, 0);
  }));
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
}

TEST_F(ChannelEditorTest, TheMenuOpensTheSlotOfEachItem) {
  const std::pair<int, const char*> items[] = {{113, "Edit VFO MW"},    {122, "Edit VFO Act2"},
                                               {123, "Edit VFO MW"},    {132, "Edit VFO Act2"},
                                               {133, "Edit Home MW"},   {142, "Edit Home Act2"},
                                               {138, "Edit Home V Ham"}};
  for (const auto& [command, title] : items) {
    const DialogScript script([command = command, expected = title](HWND dialog) {
      EXPECT_EQ(Title(dialog), expected);
      EXPECT_EQ(GetDlgItem(dialog, ID_COMMENT), nullptr);
      EXPECT_EQ(GetDlgItem(dialog, ID_NEXT), nullptr);
      EXPECT_EQ(IsWindowVisible(GetDlgItem(dialog, ID_NAME)) != FALSE, command >= 133);
      if (command == 138) {
        SavePicture(dialog, "edit_home");
      }
      Press(dialog, IDCANCEL);
    });
    RunCommand(command);
  }
}

TEST_F(ChannelEditorTest, TheStepOfAnMwSlotAndOfAnMwChannelIsDisabled) {
  Edit(-1, [](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, ID_STEP));
    Press(dialog, IDCANCEL);
  });
  Edit(1, [](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, ID_STEP));
    Focus(dialog, ID_RECEIVE);
    Type(dialog, ID_RECEIVE, "1000k");
    Focus(dialog, ID_NAME);
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "  1.0000");
    EXPECT_FALSE(IsEnabled(dialog, ID_STEP));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChannelEditorTest, OnlyAnOddSplitHasATransmitFrequencyOfItsOwn) {
  EXPECT_TRUE(Edit(1, [](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, ID_TRANSMIT));
    Type(dialog, ID_RECEIVE, "145");
    Press(dialog, ID_SHIFT_ODD_SPLIT);
    EXPECT_TRUE(IsEnabled(dialog, ID_TRANSMIT));
    Type(dialog, ID_TRANSMIT, "433");
    Press(dialog, IDOK);
  }));
  EXPECT_EQ(RecordOf(1)[17] & 3, 3);
  EXPECT_EQ(RecordOf(1)[14], 0x43);
  EXPECT_EQ(RecordOf(1)[15], 0x30);
}

TEST_F(ChannelEditorTest, AReceiveFrequencyOutsideTheHomeSlotsBandIsRefused) {
  const CloneImage before = Image();
  EXPECT_FALSE(Edit(-26, [](HWND dialog) {
    Type(dialog, ID_RECEIVE, "180");
    Press(dialog, IDOK);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"A valid receive frequency is required"});
    EXPECT_TRUE(HasFocus(dialog, ID_RECEIVE));
    Press(dialog, IDCANCEL);
  }));
  EXPECT_EQ(Image(), before);
}

TEST_F(ChannelEditorTest, AnOffsetThatIsRefusedTakesTheFocusBack) {
  EXPECT_FALSE(Edit(1, [](HWND dialog) {
    TypeOffsetText(dialog, "200");
    Focus(dialog, ID_NAME);
    EXPECT_EQ(test_seams.messages.size(), 1U);
    EXPECT_TRUE(HasFocus(dialog, ID_OFFSET));
    EXPECT_EQ(TextOf(dialog, ID_OFFSET), "600 kHz");
    TypeOffsetText(dialog, "200");
    Press(dialog, IDOK);
    EXPECT_EQ(test_seams.messages.size(), 2U);
    EXPECT_TRUE(HasFocus(dialog, ID_OFFSET));
    TypeOffsetText(dialog, "200");
    Focus(dialog, IDCANCEL);
    EXPECT_EQ(test_seams.messages.size(), 2U);
    Press(dialog, IDCANCEL);
  }));
}

TEST_F(ChannelEditorTest, AnOffsetFromTheListMovesTheTransmitFrequency) {
  Edit(1, [](HWND dialog) {
    Type(dialog, ID_RECEIVE, "433");
    Press(dialog, ID_SHIFT_PLUS);
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT), "433.6000");
    Choose(dialog, ID_OFFSET, 5);
    EXPECT_EQ(TextOf(dialog, ID_OFFSET), "7.6 MHz");
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT), "440.6000");
    TypeOffsetText(dialog, "5");
    Focus(dialog, ID_NAME);
    EXPECT_EQ(TextOf(dialog, ID_OFFSET), "5 MHz");
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT), "438.0000");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(RecordOf(1)[14], 0x00);
  EXPECT_EQ(RecordOf(1)[15], 0x50);
}

// 1.05 MHz shows as "1.500 MHz".
TEST_F(ChannelEditorTest, AnUntouchedOffsetStaysWhatItWas) {
  std::uint8_t* record = GetChannelRecord(Image(), 1);
  record[15] = 0x10;
  record[16] = 0x50;
  Edit(1, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_OFFSET), "1.500 MHz");
    Focus(dialog, ID_OFFSET);
    Focus(dialog, ID_NAME);
    Press(dialog, ID_SHIFT_PLUS);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(RecordOf(1)[15], 0x10);
  EXPECT_EQ(RecordOf(1)[16], 0x50);
}

TEST_F(ChannelEditorTest, BandDefaultsSetOffsetAndStep) {
  Edit(1, [](HWND dialog) {
    Type(dialog, ID_RECEIVE, "433");
    Press(dialog, ID_SHIFT_MINUS);
    Press(dialog, ID_BAND_DEFAULTS);
    EXPECT_EQ(TextOf(dialog, ID_OFFSET), "5 MHz");
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT), "428.0000");
    EXPECT_EQ(TextOf(dialog, ID_STEP), "25 kHz");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChannelEditorTest, AnEmptyReceiveFrequencyClearsTheChannel) {
  EXPECT_TRUE(Edit(1, [](HWND dialog) {
    Type(dialog, ID_RECEIVE, "");
    Press(dialog, IDOK);
  }));
  EXPECT_FALSE(IsProgrammed(Image(), 1));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(ChannelEditorTest, MaskingLeavesTheGroups) {
  SetProgrammed(Image(), 9, true);
  SetMasked(Image(), 9, false);
  std::copy_n(GetChannelRecord(Image(), 1), kRecordSize, GetChannelRecord(Image(), 9));
  AppendToGroup(Image(), 0, 8);
  AppendToGroup(Image(), 3, 8);
  Edit(9, [](HWND dialog) {
    Press(dialog, ID_MASKED);
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(IsMasked(Image(), 9));
  EXPECT_FALSE(IsInGroup(Image(), 0, 8));
  EXPECT_FALSE(IsInGroup(Image(), 3, 8));
}

TEST_F(ChannelEditorTest, PreviousAndNextTakeTheChannelAlong) {
  std::vector<int> written;
  std::vector<int> shown;
  const EditorListener listener{.written = [&](int n) { written.push_back(n); },
                                .shown = [&](int n) { shown.push_back(n); }};
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_PREVIOUS);
    EXPECT_EQ(Title(dialog), "Edit Memory Channel  1");
    EXPECT_FALSE(IsEnabled(dialog, ID_MASKED));
    Type(dialog, ID_NAME, "ONE");
    Press(dialog, ID_NEXT);
    EXPECT_EQ(Title(dialog), "Edit Memory Channel  2");
    EXPECT_TRUE(IsEnabled(dialog, ID_MASKED));
    EXPECT_EQ(TextOf(dialog, ID_NAME), "");
    Type(dialog, ID_RECEIVE, "146.52");
    Press(dialog, ID_NEXT);
    Type(dialog, ID_RECEIVE, "33333");
    Press(dialog, ID_PREVIOUS);
    EXPECT_EQ(Title(dialog), "Edit Memory Channel  3");
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"A valid receive frequency is required"});
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(ShowChannelEditorDialog(app.document, 1, listener));
  EXPECT_EQ(written, (std::vector<int>{1, 2}));
  EXPECT_EQ(shown, (std::vector<int>{2, 3}));
  EXPECT_STREQ(GetChannelName(Image(), 1).data(), "ONE     ");
  EXPECT_TRUE(IsProgrammed(Image(), 2));
  EXPECT_FALSE(IsProgrammed(Image(), 3));
}

TEST_F(ChannelEditorTest, CodesWithoutAMeaningShowNothingAndStay) {
  std::uint8_t* record = GetChannelRecord(Image(), 1);
  record[5] = 40 << 2 | 3;
  record[17] = static_cast<std::uint8_t>(0x50 | (record[17] & 0x0F));
  record[18] = 39;
  record[19] = 104;
  record[1] = 200;
  record[0] = 0x40;  // off that step
  record[6] = 0x9A;
  const std::vector<std::uint8_t> before = RecordOf(1);
  Edit(1, [](HWND dialog) {
    for (const int list : {ID_MODE, ID_TONE_TYPE, ID_TONE, ID_DCS, ID_STEP}) {
      EXPECT_EQ(Selection(dialog, list), -1) << list;
    }
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_ICON, LB_GETCURSEL, 0, 0), LB_ERR);
    Press(dialog, ID_OPTION_FLAG);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(RecordOf(1), before);
}

TEST_F(ChannelEditorTest, TheNameHasTheRadioFontAndAllIconsAreInSight) {
  Edit(1, [](HWND dialog) {
    LOGFONTA font{};
    GetObjectA(reinterpret_cast<HFONT>(SendDlgItemMessageA(dialog, ID_NAME, WM_GETFONT, 0, 0)),
               sizeof font, &font);
    EXPECT_STREQ(font.lfFaceName, "QZ7");
    EXPECT_EQ(font.lfHeight, 18);
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_ICON, LB_GETCOUNT, 0, 0), 27);
    RECT last{};
    RECT client{};
    SendDlgItemMessageA(dialog, ID_ICON, LB_GETITEMRECT, 26, reinterpret_cast<LPARAM>(&last));
    GetClientRect(GetDlgItem(dialog, ID_ICON), &client);
    EXPECT_LE(last.right, client.right);
    EXPECT_LE(last.bottom, client.bottom);
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChannelEditorTest, TheIconsKeepTheirNames) {
  Edit(1, [](HWND dialog) {
    for (int icon = 0; icon < kIconCount; ++icon) {
      char name[100] = "";
      SendDlgItemMessageA(dialog, ID_ICON, LB_GETTEXT, static_cast<WPARAM>(icon),
                          reinterpret_cast<LPARAM>(name));
      EXPECT_EQ(name, IconName(icon));
    }
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChannelEditorTest, LeaksNoGdiObject) {
  const auto edit = [] {
    Edit(1, [](HWND dialog) { Press(dialog, ID_NEXT), Press(dialog, IDCANCEL); });
  };
  edit();
  const ProcessObjects before = CountObjects();
  for (int i = 0; i < 5; ++i) {
    edit();
  }
  EXPECT_TRUE(ComesBackTo(before));
}

TEST_F(ChannelEditorTest, AnAbsentChannelDoesNotOpen) {
  EXPECT_FALSE(ShowChannelEditorDialog(app.document, 241));
  EXPECT_FALSE(ShowChannelEditorDialog(app.document, -31));
}

TEST_F(ChannelEditorTest, ItsFieldsTakeNoMoreThanTheirTexts) {
  Edit(1, [](HWND dialog) {
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_RECEIVE, EM_GETLIMITTEXT, 0, 0), 10);
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_TRANSMIT, EM_GETLIMITTEXT, 0, 0), 10);
    EXPECT_EQ(SendMessageA(OffsetText(dialog), EM_GETLIMITTEXT, 0, 0), 25);
    TypeOffsetText(dialog, std::string(30, '1'));
    EXPECT_EQ(TextOf(dialog, ID_OFFSET), std::string(25, '1'));
    SetWindowTextA(OffsetText(dialog), "0");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChannelEditorTest, BandDefaultsShowTheStepsOfTheBand) {
  Edit(1, [](HWND dialog) {
    const auto steps = [=] { return SendDlgItemMessageA(dialog, ID_STEP, CB_GETCOUNT, 0, 0); };
    const LRESULT of_2m = steps();
    Type(dialog, ID_RECEIVE, "830");
    Press(dialog, ID_BAND_DEFAULTS);
    const LRESULT of_act2 = steps();
    EXPECT_NE(of_2m, of_act2);
    Type(dialog, ID_RECEIVE, "145");
    Press(dialog, ID_BAND_DEFAULTS);
    EXPECT_EQ(steps(), of_2m);
    Press(dialog, IDCANCEL);
  });
}

}  // namespace
}  // namespace qz7
