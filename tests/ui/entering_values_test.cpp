#include "core/image/channel_record.h"
#include "core/image/frequency_check.h"
#include "desktop/editors/channel_editor_dialog.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

// What the channel editor makes of what is typed and pasted, and what it says beside it.
namespace qz7 {
namespace {

HWND Field(HWND dialog, int control) {
  const HWND field = GetDlgItem(dialog, control);
  return control == ID_OFFSET ? GetWindow(field, GW_CHILD) : field;
}

void TypeInto(HWND dialog, int control, const std::string& text) {
  const HWND field = Field(dialog, control);
  SetFocus(field);
  SendMessageA(field, EM_SETSEL, 0, -1);
  for (const char c : text) {
    SendMessageA(field, WM_CHAR, static_cast<unsigned char>(c), 0);
  }
}

void Paste(HWND dialog, int control, const std::string& text) {
  PutPlainText(text);
  SendMessageA(Field(dialog, control), EM_SETSEL, 0, -1);
  SendMessageA(Field(dialog, control), WM_PASTE, 0, 0);
}

class EnteringValues : public WindowTest {
 protected:
  static void Edit(int n, const std::function<void(HWND)>& script) {
    const DialogScript run([&](HWND dialog) {
      script(dialog);
      if (IsWindow(dialog)) {
        Press(dialog, IDCANCEL);
      }
    });
    ShowChannelEditorDialog(app.document, n);
  }

  static Frequency Received(int n) {
    return ReadReceiveFrequency(GetChannelRecord(app.document.image, n), app.document.region);
  }
};

TEST_F(EnteringValues, ATypedCommaIsAPointInEachFrequencyField) {
  for (const int n : {1, -6, -26}) {
    Edit(n, [](HWND dialog) {
      TypeInto(dialog, ID_RECEIVE, "145,5");
      EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "145.5");
      TypeInto(dialog, ID_OFFSET, "1,6");
      EXPECT_EQ(TextOf(dialog, ID_OFFSET), "1.6");
      Press(dialog, ID_SHIFT_ODD_SPLIT);
      TypeInto(dialog, ID_TRANSMIT, "433,5");
      EXPECT_EQ(TextOf(dialog, ID_TRANSMIT), "433.5");
    });
  }
}

TEST_F(EnteringValues, ANameAndACommentKeepTheirCommas) {
  Edit(1, [](HWND dialog) {
    TypeInto(dialog, ID_NAME, "A,B");
    TypeInto(dialog, ID_COMMENT, "Ulm, 145,5");
    EXPECT_EQ(TextOf(dialog, ID_NAME), "A,B");
    EXPECT_EQ(TextOf(dialog, ID_COMMENT), "Ulm, 145,5");
  });
}

TEST_F(EnteringValues, APastedCommaIsAPointInEachFrequencyField) {
  Edit(1, [](HWND dialog) {
    Press(dialog, ID_SHIFT_ODD_SPLIT);
    for (const int control : {ID_RECEIVE, ID_TRANSMIT, ID_OFFSET}) {
      Paste(dialog, control, "99,5\r\n1,2");
      EXPECT_EQ(TextOf(dialog, control), "99.5");
    }
    EXPECT_EQ(TextOf(dialog, ID_OFFSET_READING), "99.5000 MHz");
    Paste(dialog, ID_RECEIVE, "145,5000 MHz");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "145.5000 M");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "145.5000 MHz, 2 m, 5 kHz steps");
  });
}

TEST_F(EnteringValues, APasteGoesWhereTheCaretIsAndCanBeTakenBack) {
  Edit(1, [](HWND dialog) {
    const HWND receive = Field(dialog, ID_RECEIVE);
    TypeInto(dialog, ID_RECEIVE, "1");
    SendMessageA(receive, EM_EMPTYUNDOBUFFER, 0, 0);
    PutPlainText("45,5");
    SendMessageA(receive, WM_CHAR, 0x16, 0);  // Ctrl+V
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "145.5");
    SendMessageA(receive, EM_UNDO, 0, 0);
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "1");
    ASSERT_TRUE(OpenClipboard(dialog));
    EmptyClipboard();
    CloseClipboard();
    SendMessageA(receive, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "1");
  });
}

TEST_F(EnteringValues, EachCharacterIsReadAtOnce) {
  Edit(1, [](HWND dialog) {
    TypeInto(dialog, ID_RECEIVE, "145,005");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "145.0050 MHz, 2 m, 5 kHz steps");
    SendMessageA(Field(dialog, ID_RECEIVE), WM_CHAR, VK_BACK, 0);
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "145.0000 MHz, 2 m, 5 kHz steps");
    TypeInto(dialog, ID_RECEIVE, "20");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "20.0000 MHz, outside the bands");
    TypeInto(dialog, ID_RECEIVE, "abc");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "Not a frequency");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "abc");
    TypeInto(dialog, ID_OFFSET, "200");
    EXPECT_EQ(TextOf(dialog, ID_OFFSET_READING), "200 MHz, more than 99.95 MHz");
    SavePicture(dialog, "edit_memory_readings");
    EXPECT_TRUE(test_seams.messages.empty());
  });
}

TEST_F(EnteringValues, TabWritesTheFrequencyOutAndLeavesItsReading) {
  Edit(1, [](HWND dialog) {
    TypeInto(dialog, ID_RECEIVE, "433,5");
    PressKey(dialog, VK_TAB);
    EXPECT_NE(GetFocus(), Field(dialog, ID_RECEIVE));
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE), "433.5000");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "433.5000 MHz, 70 cm, 5 kHz steps");
    EXPECT_TRUE(test_seams.messages.empty());
  });
}

TEST_F(EnteringValues, EnterRefusesWhatHasBeenReadInWordsEachTimeAnew) {
  Edit(1, [](HWND dialog) {
    TypeInto(dialog, ID_RECEIVE, "14x,5");
    TypeInto(dialog, ID_RECEIVE, "kHz");
    PressKey(dialog, VK_RETURN);
    PressKey(dialog, VK_RETURN);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>(2, kReceiveRefused));
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(GetFocus(), Field(dialog, ID_RECEIVE));
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "Not a frequency");
    TypeInto(dialog, ID_RECEIVE, "433,0125");
    PressKey(dialog, VK_RETURN);
    EXPECT_EQ(test_seams.messages.size(), 2U);
  });
  EXPECT_EQ(Received(1), HundredHertz(4'330'125));
}

TEST_F(EnteringValues, TheTransmitFrequencyIsReadWhereItIsTyped) {
  Edit(1, [](HWND dialog) {
    TypeInto(dialog, ID_RECEIVE, "145");
    Press(dialog, ID_SHIFT_PLUS);
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT_READING), "");
    Press(dialog, ID_SHIFT_ODD_SPLIT);
    TypeInto(dialog, ID_TRANSMIT, "433,0125");
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT_READING), "433.0125 MHz, 70 cm, 6.25 kHz steps");
    SavePicture(dialog, "edit_memory_split");
    Press(dialog, ID_SHIFT_SIMPLEX);
    EXPECT_EQ(TextOf(dialog, ID_TRANSMIT_READING), "");
  });
}

// 1.05 MHz shows as "1.500 MHz".
TEST_F(EnteringValues, AnUntouchedOffsetIsReadAsWhatItStandsFor) {
  std::uint8_t* record = GetChannelRecord(app.document.image, 1);
  record[15] = 0x10;
  record[16] = 0x50;
  Edit(1, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_OFFSET_READING), "1.05 MHz");
    Choose(dialog, ID_OFFSET, 5);
    EXPECT_EQ(TextOf(dialog, ID_OFFSET_READING), "7.6000 MHz");
    TypeInto(dialog, ID_OFFSET, "200");
    PressKey(dialog, VK_TAB);
    EXPECT_EQ(test_seams.messages.size(), 1U);
    EXPECT_EQ(TextOf(dialog, ID_OFFSET_READING), "600 kHz");
  });
}

TEST_F(EnteringValues, TheReadingsFollowToTheNextChannel) {
  Edit(1, [](HWND dialog) {
    EXPECT_TRUE(TextOf(dialog, ID_RECEIVE_READING).ends_with(" steps"));
    Press(dialog, ID_NEXT);
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "No frequency: OK leaves the channel empty");
    TypeInto(dialog, ID_RECEIVE, "433");
    Press(dialog, ID_PREVIOUS);
    Press(dialog, ID_NEXT);
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "433.0000 MHz, 70 cm, 5 kHz steps");
  });
}

TEST_F(EnteringValues, AHomeChannelSaysWhatIsNotInItsBand) {
  Edit(-26, [](HWND dialog) {
    TypeInto(dialog, ID_RECEIVE, "180");
    EXPECT_EQ(TextOf(dialog, ID_RECEIVE_READING), "180.0000 MHz, TV, not in the band V Ham");
    SavePicture(dialog, "edit_home_readings");
  });
}

TEST_F(EnteringValues, ALineTellsWhichListTheToneTypeUsesAndBothStayEnabled) {
  const char* lines[] = {"None uses neither list.", "Tone Encode uses the CTCSS list.",
                         "Tone Squelch uses the CTCSS list.", "DCS uses the DCS list."};
  Edit(1, [&](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_TONE_USE), lines[0]);
    for (int type = 0; type < 4; ++type) {
      Choose(dialog, ID_TONE_TYPE, type);
      EXPECT_EQ(TextOf(dialog, ID_TONE_USE), lines[type]);
      EXPECT_TRUE(IsEnabled(dialog, ID_TONE));
      EXPECT_TRUE(IsEnabled(dialog, ID_DCS));
    }
  });
  std::uint8_t* record = GetChannelRecord(app.document.image, 1);
  record[17] = static_cast<std::uint8_t>(0x50 | (record[17] & 0x0F));
  Edit(1, [&](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_TONE_USE),
              "A tone type without a name: which list it uses is not known.");
  });
}

}  // namespace
}  // namespace qz7
