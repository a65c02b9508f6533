#include "desktop/toolkit/help.h"

#include <algorithm>
#include <fstream>

#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "desktop/commands.h"
#include "desktop/editors/copy_many_dialog.h"
#include "desktop/link/port_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help_viewer.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {

// What the program exports.
extern "C" INT_PTR CALLBACK DlgProcWriteRadioDone(HWND dialog, UINT message, WPARAM w, LPARAM l);

namespace {

struct Asked {
  std::string file;
  UINT command;
  ULONG_PTR data;
  bool operator==(const Asked&) const = default;
};
void PrintTo(const Asked& asked, std::ostream* out) {
  *out << asked.file << " " << asked.command << " " << asked.data;
}

// The system's side of the help.
bool has_viewer = true;
bool viewer_searches = true;
bool has_help_on_help = true;
std::vector<Asked> asked;
std::vector<std::string> pages;

}  // namespace

bool HasHelpViewer() { return has_viewer; }
bool HelpViewerSearches() { return viewer_searches; }
bool HasHelpOnHelp() { return has_help_on_help; }

void AskHelpViewer(const std::string& file, UINT command, ULONG_PTR data) {
  // The text of a search is looked at while it is there.
  const bool text = command == HELP_PARTIALKEY;
  if (command == HELP_CONTEXT) {
    Record("context", std::to_string(data));
  }
  asked.push_back({file, command, text ? *reinterpret_cast<const char*>(data) : data});
}

void OpenHelpPage(const std::string& url) { pages.push_back(url); }

namespace {

class Help : public WindowTest {
 protected:
  Help() : help_path_(dialog_modules.help_path) {
    has_viewer = viewer_searches = has_help_on_help = true;
    asked.clear();
    pages.clear();
    dialog_modules.help_path = folder.File("my help.hlp");
    std::ofstream(dialog_modules.help_path) << "help";
    std::ofstream(folder.File("my help.html")) << "help";
  }
  ~Help() override { dialog_modules.help_path = help_path_; }

  std::string PageUrl() const {
    std::string url = "file:///" + folder.path().string() + "/my%20help.html";
    std::replace(url.begin(), url.end(), '\\', '/');
    return url;
  }

  static std::vector<int> Contexts() {
    std::vector<int> contexts;
    for (const Asked& one : asked) {
      EXPECT_EQ(one.command, static_cast<UINT>(HELP_CONTEXT));
      EXPECT_EQ(one.file, dialog_modules.help_path);
      contexts.push_back(static_cast<int>(one.data));
    }
    return contexts;
  }

 private:
  std::filesystem::path help_path_;
};

// At the keyboard: the system makes its request for help of the key itself.
void PressF1() {
  INPUT keys[2] = {};
  for (INPUT& key : keys) {
    key.type = INPUT_KEYBOARD;
    key.ki.wVk = VK_F1;
  }
  keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(2, keys, sizeof(INPUT));
}

// Presses the Help button and then F1 in a field, and closes the dialog.
void AskTwice(HWND dialog) {
  Press(dialog, ID_HELP);
  EXPECT_EQ(asked.size(), 1U);
  SetFocus(GetDlgItem(dialog, ID_HELP));
  PressF1();
  EXPECT_TRUE(HandleMessagesUntil([] { return asked.size() == 2; }));
  SendMessageA(dialog, WM_CLOSE, 0, 0);
}

struct Place {
  const char* name;
  int command;
  int context;
};
void PrintTo(const Place& place, std::ostream* out) { *out << place.name; }

class HelpOf : public Help, public testing::WithParamInterface<Place> {};

TEST_P(HelpOf, ItsDialogIsItsTopicByButtonAndByF1) {
  const DialogScript script(AskTwice);
  RunCommand(GetParam().command);
  EXPECT_EQ(Contexts(), (std::vector<int>{GetParam().context, GetParam().context}));
}

INSTANTIATE_TEST_SUITE_P(
    EveryMenuCommand, HelpOf,
    testing::Values(Place{"GetData", CM_GET_DATA, 102}, Place{"SendData", CM_SEND_DATA, 103},
                    Place{"MemoryList", CM_VIEW, 106}, Place{"Groups", CM_GROUP, 120},
                    Place{"VfoA", CM_VFO_A_FIRST, 111}, Place{"VfoB", CM_VFO_B_FIRST, 111},
                    Place{"Home", CM_HOME_LAST, 111}, Place{"Autodial", CM_AUTODIAL, 108},
                    Place{"Settings", CM_SETTINGS, 121}, Place{"Vorn", CM_VORN, 119},
                    Place{"WxNames", CM_WX_NAMES, 123}, Place{"Icons", CM_ICON_SELECT, 125},
                    Place{"Preferences", CM_PREFERENCES, 122}),
    [](const testing::TestParamInfo<Place>& place) { return std::string(place.param.name); });

TEST_F(Help, OfTheEditorOfAMemoryChannelIsItsOwn) {
  const DialogScript list([](HWND dialog) { Press(dialog, ID_EDIT_CHANNEL); });
  const DialogScript editor([](HWND dialog) {
    AskTwice(dialog);
    PostMessageA(GetWindow(dialog, GW_OWNER), WM_CLOSE, 0, 0);
  });
  RunCommand(CM_VIEW);
  EXPECT_EQ(Contexts(), (std::vector<int>{107, 107}));
}

TEST_F(Help, OfCopyMany) {
  CopyMany chosen;
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_HELP);
    Press(dialog, IDCANCEL);
  });
  ShowCopyManyDialog(1, chosen);
  EXPECT_EQ(Contexts(), std::vector<int>{112});
}

TEST_F(Help, OfMerging) {
  CloneImage source{};
  MakeNewImage(source);
  ASSERT_TRUE(WriteRadioDataFile(source, folder.File("other.rdf")));
  test_seams.files = {Chosen(folder.File("other.rdf"))};
  const DialogScript script(AskTwice);
  RunCommand(CM_MERGE);
  EXPECT_EQ(Contexts(), (std::vector<int>{110, 110}));
}

TEST_F(Help, OfDataSent) {
  const DialogScript script(AskTwice);
  RunDialog("DLLDlgWriteRadioDone", DlgProcWriteRadioDone, nullptr);
  EXPECT_EQ(Contexts(), (std::vector<int>{104, 104}));
}

TEST_F(Help, OfThePortSetupByF1) {
  const DialogScript script([](HWND dialog) {
    SetFocus(GetDlgItem(dialog, ID_PORT));
    PressF1();
    EXPECT_TRUE(HandleMessagesUntil([] { return !asked.empty(); }));
    Press(dialog, IDCANCEL);
  });
  ShowPortDialog(0);
  EXPECT_EQ(Contexts(), std::vector<int>{105});
}

TEST_F(Help, OfTheImportColumns) {
  std::ofstream(folder.File("list.txt")) << "145.500,first\r\n";
  test_seams.files = {Chosen(folder.File("list.txt"))};
  const DialogScript file([](HWND dialog) {
    Press(dialog, ID_BROWSE_IMPORT);
    Press(dialog, IDOK);
  });
  const DialogScript columns(AskTwice);
  RunCommand(CM_IMPORT);
  EXPECT_EQ(Contexts(), (std::vector<int>{224, 224}));
}

TEST_F(Help, InTheMainWindowF1OpensTheContents) {
  SetFocus(GetDlgItem(app.main_dialog, ID_FILE_COMMENT));
  PressF1();
  EXPECT_TRUE(HandleMessagesUntil([] { return !asked.empty(); }));
  EXPECT_EQ(asked, (std::vector<Asked>{{PathText(dialog_modules.help_path), HELP_CONTENTS, 0}}));
}

TEST_F(Help, TheMenuOpensContentsSearchAndHelpOnHelp) {
  RunCommand(CM_HELP_CONTENTS);
  RunCommand(CM_HELP_SEARCH);
  RunCommand(CM_HELP_ON_HELP);
  EXPECT_EQ(asked, (std::vector<Asked>{{PathText(dialog_modules.help_path), HELP_CONTENTS, 0},
                                       {PathText(dialog_modules.help_path), HELP_PARTIALKEY, 0},
                                       {"WINHELP.HLP", HELP_CONTENTS, 0}}));
}

TEST_F(Help, IsToldToQuitWhenTheProgramCloses) {
  SendMessageA(app.main_window, WM_CLOSE, 0, 0);
  EXPECT_EQ(asked, (std::vector<Asked>{{PathText(dialog_modules.help_path), HELP_QUIT, 0}}));
  EXPECT_FALSE(IsWindow(app.main_window));
}

TEST_F(Help, IsNotToldToQuitWhenTheUserKeepsTheProgramOpen) {
  app.document.changed = true;
  test_seams.answers = {Answer::kCancel};
  SendMessageA(app.main_window, WM_CLOSE, 0, 0);
  EXPECT_TRUE(asked.empty());
}

TEST_F(Help, WithoutAViewerIsThePageAtTheTopicsAnchor) {
  has_viewer = false;
  ShowHelp(102);
  ShowHelpContents();
  ShowHelpSearch();
  ShowHelpOnHelp();
  QuitHelp();
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(pages, (std::vector<std::string>{PageUrl() + "#102", PageUrl(), PageUrl() + "#search",
                                             PageUrl() + "#help"}));
}

TEST_F(Help, WhatTheViewerCannotDoIsOnThePage) {
  viewer_searches = has_help_on_help = false;
  ShowHelpSearch();
  ShowHelpOnHelp();
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(pages, (std::vector<std::string>{PageUrl() + "#search", PageUrl() + "#help"}));
}

TEST_F(Help, WithoutTheViewersFileIsThePage) {
  DeleteFileA(folder.File("my help.hlp").c_str());
  ShowHelp(103);
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(pages, std::vector<std::string>{PageUrl() + "#103"});
}

TEST_F(Help, WithoutAnyFileShowsNothing) {
  DeleteFileA(folder.File("my help.hlp").c_str());
  DeleteFileA(folder.File("my help.html").c_str());
  ShowHelp(103);
  ShowHelpContents();
  ShowHelpSearch();
  QuitHelp();
  EXPECT_TRUE(asked.empty());
  EXPECT_TRUE(pages.empty());
  EXPECT_TRUE(test_seams.messages.empty());
}

}  // namespace
}  // namespace qz7
