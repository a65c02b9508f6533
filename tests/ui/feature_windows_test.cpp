#include <numeric>

#include "tests/ui/feature_fixture.h"

// What the five windows of the Other menu have in common.
namespace qz7 {
namespace {

struct Window {
  const char* name;
  int command;
  bool Preferences::*starts_from_defaults;
  bool collects_main_dialog;
  // Its bytes: image offset, record offset, size, and of each the bits that are its own.
  struct Piece {
    std::size_t image;
    std::size_t record;
    std::size_t size;
    int bits = 0xFF;
  };
  std::vector<Piece> pieces;
  // Each of its value controls.
  std::vector<int> lists;
  std::vector<int> texts;
  std::vector<int> buttons;
  // A change, and what it stores.
  void (*change)(HWND dialog);
  std::size_t changed_at;
  Bytes changed_to;
};
void PrintTo(const Window& window, std::ostream* out) { *out << window.name; }

std::vector<int> Sequence(int first, int count) {
  std::vector<int> numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), first);
  return numbers;
}

Bytes Number(Bytes digits) {
  digits.resize(16, 0xFF);
  return digits;
}

const Window kSettings{.name = "Settings",
                       .command = CM_SETTINGS,
                       .starts_from_defaults = &Preferences::use_setting_defaults,
                       .collects_main_dialog = true,
                       .pieces = {{10'502, 794, 2},
                                  {10'194, 576, 1},
                                  {10'196, 578, 4},
                                  {10'224, 606, 1},
                                  {10'242, 624, 10},
                                  {10'505, 797, 1, 0x40}},
                       .lists = {ID_LEVEL_A, ID_LEVEL_B, ID_SCALE, ID_TIME_OF_DAY,
                                 ID_SENSOR_DISPLAY, ID_DISPLAY_SYMBOL},
                       .texts = {ID_NUMBER_A, ID_NUMBER_B, ID_SYMBOL_TEXT},
                       .buttons = {},
                       .change = [](HWND dialog) { Choose(dialog, ID_SCALE, 4); },
                       .changed_at = 10'194,
                       .changed_to = {10}};
const Window kVorn{.name = "Vorn",
                   .command = CM_VORN,
                   .starts_from_defaults = &Preferences::use_vorn_defaults,
                   .collects_main_dialog = true,
                   .pieces = {{10'205, 587, 1}, {10'207, 589, 17}, {10'506, 798, 1, 0x08}},
                   .lists = {},
                   .texts = {ID_VORN_IDENTIFIER},
                   .buttons = Sequence(ID_VORN_MODE_FIRST, 6),
                   .change = [](HWND dialog) { Press(dialog, ID_VORN_MODE_FIRST); },
                   .changed_at = 10'205,
                   .changed_to = {0}};
const Window kAutodial{.name = "Autodial",
                       .command = CM_AUTODIAL,
                       .starts_from_defaults = &Preferences::use_dial_defaults,
                       .collects_main_dialog = true,
                       .pieces = {{10'252, 634, 144}, {10'504, 796, 1, 0x01}},
                       .lists = {},
                       .texts = Sequence(ID_AUTODIAL_FIRST, 9),
                       .buttons = {ID_AUTODIAL_FLAG},
                       .change = [](HWND dialog) { Type(dialog, ID_AUTODIAL_FIRST, "42"); },
                       .changed_at = 10'252,
                       .changed_to = Number({4, 2})};
const Window kWxNames{.name = "WxNames",
                      .command = CM_WX_NAMES,
                      .starts_from_defaults = &Preferences::use_wx_names_defaults,
                      .collects_main_dialog = false,
                      .pieces = {{10'114, 496, 80}},
                      .lists = {},
                      .texts = Sequence(ID_WX_NAME_FIRST, 10),
                      .buttons = {},
                      .change = [](HWND dialog) { Type(dialog, ID_WX_NAME_FIRST + 1, "NEW"); },
                      .changed_at = 10'122,
                      .changed_to = BytesOf("NEW     ")};
const Window kIcons{.name = "Icons",
                    .command = CM_ICON_SELECT,
                    .starts_from_defaults = &Preferences::use_icon_defaults,
                    .collects_main_dialog = false,
                    .pieces = {{10'225, 607, 15}},
                    .lists = Sequence(ID_ICON_FIRST, 15),
                    .texts = {},
                    .buttons = {},
                    .change = [](HWND dialog) { Choose(dialog, ID_ICON_FIRST + 2, 20); },
                    .changed_at = 10'227,
                    .changed_to = {20}};

class FeatureWindow : public FeatureDialogTest, public testing::WithParamInterface<Window> {
 protected:
  // Values that the windows show as they stand, others in the defaults than in the image.
  FeatureWindow() {
    Put(Image(), 10'194, {6, 0, 0, 7, 0, 8});
    Put(Image(), 10'205, {1, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    Put(Image(), 10'224, {1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14});
    Put(Image(), 10'242, {1, 2, 'O', 'L', 'D', 0, 0, 0, 0, 0});
    Put(Image(), 10'252, Bytes(144, 0xFF));
    Put(Image(), 10'252, {5, 5, 5, 1, 2, 3, 4});
    Put(Image(), 10'502, {3, 4, 0xA4, 0xA5, 0xA5});
    Defaults() = {};
    Put(Defaults(), 496, Bytes(80, 'd'));
    Put(Defaults(), 576, {15, 0, 0x01, 0x2C, 0x00, 0x2A});
    Put(Defaults(), 587, {2, 0, 1, 16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1});
    Put(Defaults(), 606, {6, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16, 15, 14, 13, 12});
    Put(Defaults(), 624, {144, 6});
    Put(Defaults(), 626, BytesOf("DEFAULTS"));
    Put(Defaults(), 634, Bytes(144, 0xFF));
    Put(Defaults(), 634, {9, 14});
    Put(Defaults(), 794, {15, 8, 1, 0x40, 0x08});
    LoadMainDialog(Image());
    CollectMainDialog(app.document);
    app.document.changed = false;
  }

  static void Open(const std::function<void(HWND)>& script) { Run(GetParam().command, script); }

  static bool SaysThatTheseAreDefaults(HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_DEFAULTS_NOTE),
              "These are your defaults, not the document's values.");
    return IsWindowVisible(GetDlgItem(dialog, ID_DEFAULTS_NOTE)) != FALSE;
  }

  // The image with the window's own bytes from the record.
  static CloneImage ImageWithDefaults() {
    CloneImage image = Image();
    for (const Window::Piece& piece : GetParam().pieces) {
      for (std::size_t i = 0; i < piece.size; ++i) {
        Mix(image[piece.image + i], Defaults()[piece.record + i], piece.bits);
      }
    }
    return image;
  }
  static DefaultsRecord RecordWith(const CloneImage& image) {
    DefaultsRecord record = Defaults();
    for (const Window::Piece& piece : GetParam().pieces) {
      for (std::size_t i = 0; i < piece.size; ++i) {
        Mix(record[piece.record + i], image[piece.image + i], piece.bits);
      }
    }
    return record;
  }

 private:
  static void Mix(std::uint8_t& byte, int taken, int bits) {
    byte = static_cast<std::uint8_t>((byte & ~bits) | (taken & bits));
  }
};

TEST_P(FeatureWindow, OpensWithTheImageAndOkAtOnceChangesNothing) {
  const CloneImage before = Image();
  Open([](HWND dialog) {
    EXPECT_TRUE(ButtonsEnabled(dialog));
    EXPECT_FALSE(SaysThatTheseAreDefaults(dialog));
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
}

TEST_P(FeatureWindow, StoresAChangeAndNothingElseOnOk) {
  CloneImage wanted = Image();
  Put(wanted, GetParam().changed_at, GetParam().changed_to);
  Open([](HWND dialog) {
    GetParam().change(dialog);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), wanted);
  EXPECT_TRUE(app.document.changed);
}

TEST_P(FeatureWindow, KeepsTheImageOnCancelAndWhenItIsClosed) {
  const CloneImage before = Image();
  for (const bool by_button : {true, false}) {
    Open([by_button](HWND dialog) {
      GetParam().change(dialog);
      by_button ? Press(dialog, IDCANCEL) : void(SendMessageA(dialog, WM_CLOSE, 0, 0));
    });
    EXPECT_EQ(Image(), before);
    EXPECT_EQ(app.document.working_copy, before);
    EXPECT_FALSE(app.document.changed);
  }
}

TEST_P(FeatureWindow, OpensWithTheDefaultsWhereThePreferenceSaysSoAndOkStoresThem) {
  const CloneImage wanted = ImageWithDefaults();
  Flags().*GetParam().starts_from_defaults = true;
  Open([](HWND dialog) {
    EXPECT_FALSE(ButtonsEnabled(dialog));
    EXPECT_TRUE(SaysThatTheseAreDefaults(dialog));
    SavePicture(dialog, std::string("defaults_of_") + GetParam().name);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), wanted);
  EXPECT_TRUE(app.document.changed);
}

TEST_P(FeatureWindow, OpensWithTheDefaultsByItsOwnPreferenceOnly) {
  Flags().use_setting_defaults = Flags().use_vorn_defaults = Flags().use_dial_defaults =
      Flags().use_wx_names_defaults = Flags().use_icon_defaults = true;
  Flags().*GetParam().starts_from_defaults = false;
  Open([](HWND dialog) {
    EXPECT_TRUE(ButtonsEnabled(dialog));
    EXPECT_FALSE(SaysThatTheseAreDefaults(dialog));
    Press(dialog, IDOK);
  });
  EXPECT_FALSE(app.document.changed);
}

// One that has been changed would still put the other defaults into the document.
TEST_P(FeatureWindow, SaysThatItOpenedWithTheDefaultsUntilItIsClosed) {
  Flags().*GetParam().starts_from_defaults = true;
  Open([](HWND dialog) {
    GetParam().change(dialog);
    EXPECT_TRUE(SaysThatTheseAreDefaults(dialog));
    Press(dialog, IDCANCEL);
  });
  Flags().*GetParam().starts_from_defaults = false;
  Open([](HWND dialog) {
    Press(dialog, ID_USE_DEFAULTS);
    EXPECT_FALSE(SaysThatTheseAreDefaults(dialog));
    Press(dialog, IDCANCEL);
  });
}

TEST_P(FeatureWindow, ShowsTheDefaultsOnTheirButtonAndDisablesBoth) {
  const CloneImage wanted = ImageWithDefaults();
  Open([](HWND dialog) {
    SetFocus(GetDlgItem(dialog, ID_USE_DEFAULTS));
    Press(dialog, ID_USE_DEFAULTS);
    EXPECT_FALSE(ButtonsEnabled(dialog));
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), wanted);
}

TEST_P(FeatureWindow, EnablesTheButtonsAgainWithEveryChange) {
  const auto expect_enabled_by = [](HWND dialog, int control, const auto& change) {
    Press(dialog, ID_USE_DEFAULTS);
    EXPECT_FALSE(ButtonsEnabled(dialog));
    change(dialog, control);
    EXPECT_TRUE(ButtonsEnabled(dialog)) << control;
  };
  Open([&](HWND dialog) {
    for (const int list : GetParam().lists) {
      expect_enabled_by(dialog, list, [](HWND d, int control) { Choose(d, control, 1); });
    }
    for (const int text : GetParam().texts) {
      expect_enabled_by(dialog, text, [](HWND d, int control) { Type(d, control, "5"); });
    }
    for (const int button : GetParam().buttons) {
      expect_enabled_by(dialog, button, Press);
    }
    Press(dialog, IDCANCEL);
  });
}

TEST_P(FeatureWindow, DoesNotEnableTheButtonsWhenAnythingElseNotifies) {
  const auto notify = [](HWND dialog, int control, int notification) {
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(control, notification),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, control)));
  };
  Open([&](HWND dialog) {
    Press(dialog, ID_USE_DEFAULTS);
    for (const int list : GetParam().lists) {
      notify(dialog, list, CBN_DROPDOWN);
      notify(dialog, list, CBN_SELENDCANCEL);
    }
    for (const int text : GetParam().texts) {
      notify(dialog, text, EN_SETFOCUS);
      notify(dialog, text, EN_UPDATE);
    }
    for (const int button : GetParam().buttons) {
      notify(dialog, button, BN_SETFOCUS);
    }
    EXPECT_FALSE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
}

TEST_P(FeatureWindow, SavesAsDefaultsIntoRecordAndFileAndCancelKeepsTheImage) {
  const CloneImage before = Image();
  CloneImage shown = before;
  Put(shown, GetParam().changed_at, GetParam().changed_to);
  Defaults().fill(0x5A);
  const DefaultsRecord wanted = RecordWith(shown);
  Open([](HWND dialog) {
    GetParam().change(dialog);
    SetFocus(GetDlgItem(dialog, ID_STORE_DEFAULTS));
    Press(dialog, ID_STORE_DEFAULTS);
    EXPECT_FALSE(ButtonsEnabled(dialog));
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(Defaults(), wanted);
  EXPECT_EQ(DefaultsOnDisk(), Bytes(wanted.begin(), wanted.end()));
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
}

// WX names and icons leave in the main dialog what its controls hold, wanted.
TEST_P(FeatureWindow, CollectsTheMainDialogFirstOrNotAtAll) {
  const std::uint8_t before = Image()[10'240];
  const int other = before == 3 ? 2 : 3;
  Choose(app.main_dialog, ID_AUTO_POWER_OFF, other);
  Open([](HWND dialog) { Press(dialog, IDOK); });
  EXPECT_EQ(Image()[10'240], GetParam().collects_main_dialog ? other : before);
  EXPECT_EQ(app.document.changed, GetParam().collects_main_dialog);
}

TEST_P(FeatureWindow, LeaksNoGdiObjectAndNoWindow) {
  const auto open_and_close = [] { Open([](HWND dialog) { Press(dialog, IDOK); }); };
  open_and_close();
  const ProcessObjects before = CountObjects();
  for (int i = 0; i < 3; ++i) {
    open_and_close();
  }
  EXPECT_TRUE(ComesBackTo(before));
}

INSTANTIATE_TEST_SUITE_P(Each, FeatureWindow,
                         testing::Values(kSettings, kVorn, kAutodial, kWxNames, kIcons),
                         [](const testing::TestParamInfo<Window>& window) {
                           return std::string(window.param.name);
                         });

}  // namespace
}  // namespace qz7
