#include "core/link/port_setup.h"
#include "desktop/about_dialog.h"
#include "desktop/files/preferences_dialog.h"
#include "desktop/files/template_dialog.h"
#include "desktop/link/port_dialog.h"
#include "desktop/locations.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

using PreferencesDialogTest = WindowTest;
using PortDialogTest = WindowTest;
using TemplateDialogTest = WindowTest;
using AboutDialogTest = WindowTest;

TEST_F(PreferencesDialogTest, OkStoresAndWritesTheBoxes) {
  Preferences preferences;
  const DialogScript script([](HWND dialog) {
    SavePicture(dialog, "preferences");
    Press(dialog, 101);
    Press(dialog, 102);
    Press(dialog, IDOK);
  });
  ShowPreferencesDialog(preferences);
  EXPECT_TRUE(preferences.use_main_defaults_new);
  EXPECT_TRUE(preferences.use_dial_defaults);
  EXPECT_FALSE(preferences.use_setting_defaults);
  EXPECT_EQ(test_seams.profile.size(), 8U);
  EXPECT_EQ(test_seams.profile["UseDialDefaults"], "1");
}

TEST_F(PreferencesDialogTest, OkAtOnceTurnsTheIconFlagIntoTheWxNamesFlag) {
  Preferences preferences;
  preferences.use_icon_defaults = true;
  const DialogScript script([](HWND dialog) {
    EXPECT_TRUE(IsChecked(dialog, 107));
    EXPECT_FALSE(IsChecked(dialog, 108));
    Press(dialog, IDOK);
  });
  ShowPreferencesDialog(preferences);
  EXPECT_FALSE(preferences.use_icon_defaults);
  EXPECT_TRUE(preferences.use_wx_names_defaults);
}

TEST_F(PreferencesDialogTest, TheWxNamesBoxShowsTheIconFlagAndTheIconBoxIsClear) {
  Preferences preferences;
  preferences.use_wx_names_defaults = true;
  const DialogScript script([](HWND dialog) {
    EXPECT_FALSE(IsChecked(dialog, 107));
    EXPECT_FALSE(IsChecked(dialog, 108));
    Press(dialog, IDOK);
  });
  ShowPreferencesDialog(preferences);
  EXPECT_FALSE(preferences.use_wx_names_defaults);
}

TEST_F(PreferencesDialogTest, EveryOtherBoxShowsAndStoresItsOwnFlag) {
  const std::vector<std::pair<int, bool Preferences::*>> boxes = {
      {101, &Preferences::use_main_defaults_new},  {102, &Preferences::use_dial_defaults},
      {103, &Preferences::use_setting_defaults},   {104, &Preferences::use_vorn_defaults},
      {105, &Preferences::use_main_defaults_open}, {106, &Preferences::use_dont_ask_defaults}};
  for (const auto& [box, flag] : boxes) {
    Preferences preferences;
    preferences.*flag = true;
    const DialogScript script([&boxes, box = box](HWND dialog) {
      for (const auto& [other, ignored] : boxes) {
        EXPECT_EQ(IsChecked(dialog, other), other == box) << other;
      }
      Press(dialog, IDOK);
    });
    ShowPreferencesDialog(preferences);
    EXPECT_TRUE(preferences.*flag) << box;
  }
}

TEST_F(PreferencesDialogTest, EachBoxSaysWhatItIsFor) {
  Preferences preferences;
  const DialogScript script([](HWND dialog) {
    const std::vector<std::pair<int, const char*>> captions = {
        {101, "For a &new document"},
        {102, "&Autodial"},
        {103, "&Settings"},
        {104, "&VORN"},
        {107, "&WX names"},
        {108, "&Icon select"},
        {105, "For an &opened document"},
        {106, "&Do not ask about the defaults for a new document"}};
    for (const auto& [box, caption] : captions) {
      EXPECT_EQ(TextOf(dialog, box), caption) << box;
    }
    Press(dialog, IDCANCEL);
  });
  ShowPreferencesDialog(preferences);
}

TEST_F(PreferencesDialogTest, TheIconBoxStoresTheIconFlag) {
  Preferences preferences;
  const DialogScript script([](HWND dialog) {
    Press(dialog, 108);
    Press(dialog, IDOK);
  });
  ShowPreferencesDialog(preferences);
  EXPECT_TRUE(preferences.use_icon_defaults);
  EXPECT_FALSE(preferences.use_wx_names_defaults);
}

TEST_F(PreferencesDialogTest, CancelAndClosingChangeNothing) {
  Preferences preferences;
  const DialogScript cancel([](HWND dialog) {
    Press(dialog, 101);
    Press(dialog, IDCANCEL);
  });
  ShowPreferencesDialog(preferences);
  {
    const DialogScript close([](HWND dialog) {
      Press(dialog, 101);
      SendMessageA(dialog, WM_CLOSE, 0, 0);
    });
    ShowPreferencesDialog(preferences);
  }
  EXPECT_FALSE(preferences.use_main_defaults_new);
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(PortDialogTest, ListsNoneAndNinePorts) {
  const DialogScript script([](HWND dialog) {
    SavePicture(dialog, "port");
    std::vector<std::string> texts;
    for (WPARAM i = 0; i < 10; ++i) {
      char text[20] = "";
      SendDlgItemMessageA(dialog, ID_PORT, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
      texts.push_back(text);
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"None", "COM1", "COM2", "COM3", "COM4", "COM5",
                                               "COM6", "COM7", "COM8", "COM9"}));
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_PORT, CB_GETCOUNT, 0, 0), 10);
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_PORT, CB_GETCURSEL, 0, 0), 4);
    Choose(dialog, ID_PORT, 9);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(ShowPortDialog(4), 9);
}

TEST_F(PortDialogTest, SaysBesideTheChoiceWhetherThatPortExists) {
  const DialogScript script([](HWND dialog) {
    const auto note_of = [&](int index) {
      Choose(dialog, ID_PORT, index);
      SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(ID_PORT, CBN_SELCHANGE), 0);
      return TextOf(dialog, ID_PORT_NOTE);
    };
    const std::vector<PortInfo> ports = ListSerialPorts();
    for (int index = 0; index <= kHighestPort; ++index) {
      EXPECT_EQ(note_of(index), PortNote(index, ports));
    }
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(ShowPortDialog(4), std::nullopt);
}

TEST_F(PortDialogTest, WithoutAChoiceItStaysOpen) {
  const DialogScript script([](HWND dialog) {
    Choose(dialog, ID_PORT, -1);
    Press(dialog, IDOK);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Invalid Port"});
    EXPECT_TRUE(IsWindowVisible(dialog));
    SendMessageA(dialog, WM_CLOSE, 0, 0);
  });
  EXPECT_EQ(ShowPortDialog(1), std::nullopt);
}

TEST_F(PortDialogTest, NoneIsAChoiceAndCancelIsNot) {
  {
    const DialogScript script([](HWND dialog) {
      Choose(dialog, ID_PORT, 0);
      Press(dialog, IDOK);
    });
    EXPECT_EQ(ShowPortDialog(1), 0);
  }
  const DialogScript script([](HWND dialog) { Press(dialog, IDCANCEL); });
  EXPECT_EQ(ShowPortDialog(1), std::nullopt);
}

TEST_F(TemplateDialogTest, CreateWritesTheFile) {
  const DialogScript script([](HWND dialog) {
    SavePicture(dialog, "create_template");
    EXPECT_EQ(TextOf(dialog, 102), "Template");
    Press(dialog, 101);
  });
  EXPECT_TRUE(ShowTemplateDialog(app.document));
  EXPECT_EQ(FileBytes(folder.File("Template.tpl")).size(), 21'282U);
}

TEST_F(TemplateDialogTest, TheNameTakes8Characters) {
  const DialogScript script([](HWND dialog) {
    Type(dialog, 102, "my radio.x");
    EXPECT_EQ(TextOf(dialog, 102), "my radio");
    Press(dialog, 101);
  });
  EXPECT_TRUE(ShowTemplateDialog(app.document));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"my.tpl"});
}

TEST_F(TemplateDialogTest, ItStaysOpenWhenTheFileCannotBeWritten) {
  app.document.preferences.data_folder = folder.File("none");
  const DialogScript script([](HWND dialog) {
    Press(dialog, 101);
    EXPECT_EQ(test_seams.messages.size(), 1U);
    EXPECT_TRUE(IsWindowVisible(dialog));
    Press(dialog, ID_HELP);
    EXPECT_TRUE(IsWindowVisible(dialog));
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(ShowTemplateDialog(app.document));
}

TEST_F(AboutDialogTest, ShowsTheVersionRecord) {
  const DialogScript script([](HWND dialog) {
    SavePicture(dialog, "about");
    EXPECT_EQ(TextOf(dialog, 101), "QZ-7H Programmer");
    EXPECT_EQ(TextOf(dialog, 102).substr(0, 8), "Version ");
    EXPECT_EQ(TextOf(dialog, 104), "Tamro");
    EXPECT_FALSE(TextOf(dialog, 103).empty());
    EXPECT_FALSE(TextOf(dialog, 105).empty());
    EXPECT_FALSE(TextOf(dialog, 106).empty());
    Press(dialog, IDOK);
  });
  ShowAboutDialog(ProgramPath());
}

TEST_F(AboutDialogTest, IsCentredOverTheMainWindow) {
  const DialogScript script([](HWND dialog) {
    RECT main;
    RECT own;
    GetWindowRect(app.main_window, &main);
    GetWindowRect(dialog, &own);
    EXPECT_LE(std::abs((main.left + main.right) / 2 - (own.left + own.right) / 2), 1);
    EXPECT_LE(std::abs((main.top + main.bottom) / 2 - (own.top + own.bottom) / 2), 1);
    SendMessageA(dialog, WM_CLOSE, 0, 0);
  });
  ShowAboutDialog(ProgramPath());
}

TEST(Program, ExportsTheCopyManyDialog) {
  const HMODULE program =
      LoadLibraryExW(BesideProgram("qz7.exe").c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
  ASSERT_NE(program, nullptr);
  EXPECT_NE(reinterpret_cast<void*>(GetProcAddress(program, "DlgProcCopyMany")), nullptr);
  FreeLibrary(program);
}

TEST_F(AboutDialogTest, LeaksNoGdiObjectAndNoWindow) {
  const auto open_and_close = [] {
    const DialogScript script([](HWND dialog) { Press(dialog, IDOK); });
    ShowAboutDialog(ProgramPath());
  };
  open_and_close();
  const ProcessObjects before = CountObjects();
  for (int i = 0; i < 5; ++i) {
    open_and_close();
  }
  EXPECT_TRUE(ComesBackTo(before));
}

}  // namespace
}  // namespace qz7
