#include "desktop/toolkit/help.h"

#include <filesystem>
#include <fstream>

#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "desktop/commands.h"
#include "desktop/editors/copy_many_dialog.h"
#include "desktop/link/port_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help_viewer.h"
#include "resources/control_ids.h"
#include "tests/ui/long_folder.h"
#include "tests/ui/opened_pages.h"
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

namespace {

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

class Help : public WindowTest {
 protected:
  Help() : help_path_(dialog_modules.help_path), opened_(folder.path()) {
    asked.clear();
    std::filesystem::create_directory(PagesProgramFolder());
    std::filesystem::copy(help_path_.parent_path() / "help", PagesProgramFolder() / "help");
    dialog_modules.help_path = folder.File("qz7.hlp");
    std::ofstream(dialog_modules.help_path) << "help";
  }
  ~Help() override {
    dialog_modules.help_path = help_path_;
    has_viewer = viewer_searches = has_help_on_help = true;
  }

  // The program in a folder whose name the code page cannot write and an address would escape,
  // without the viewer's file.
  std::filesystem::path PagesProgramFolder() const {
    return folder.path() /
           L"\u017dlu\u0165ou\u010dk\u00fd \u043a\u043e\u0442 \u65e5\u672c #1 50%\u00e9";
  }
  void MoveProgram() { dialog_modules.help_path = PagesProgramFolder() / "qz7.hlp"; }

  // What the viewer was asked for.
  std::vector<int> Contexts() const {
    std::vector<int> contexts;
    for (const Asked& one : asked) {
      EXPECT_EQ(one.command, static_cast<UINT>(HELP_CONTEXT));
      EXPECT_EQ(one.file, folder.File("qz7.hlp"));
      contexts.push_back(static_cast<int>(one.data));
    }
    return contexts;
  }

  // The names of the pages that the browser was started for, once they are so many. Each is there.
  std::vector<std::string> Pages(std::size_t count) const {
    std::vector<std::string> names;
    for (const std::filesystem::path& page : opened_.WaitFor(count)) {
      EXPECT_TRUE(std::filesystem::is_regular_file(page)) << page;
      EXPECT_EQ(page.parent_path(), PagesProgramFolder() / "help");
      EXPECT_EQ(page.extension(), ".html");
      names.push_back(page.stem().string());
    }
    return names;
  }

  // Presses the Help button and then F1 in a field; first the viewer and then the browser answers.
  void AskEveryWay(HWND dialog) {
    Press(dialog, ID_HELP);
    EXPECT_EQ(asked.size(), 1U);
    SetFocus(GetDlgItem(dialog, ID_HELP));
    PressF1();
    EXPECT_TRUE(HandleMessagesUntil([] { return asked.size() == 2; }));
    MoveProgram();
    Press(dialog, ID_HELP);
    Pages(1);
    PressF1();
    Pages(2);
  }
  void AskEveryWayAndClose(HWND dialog) {
    AskEveryWay(dialog);
    SendMessageA(dialog, WM_CLOSE, 0, 0);
  }
  void ExpectEveryAnswerIs(int context, const std::string& page) const {
    EXPECT_EQ(Contexts(), (std::vector<int>{context, context}));
    EXPECT_EQ(Pages(2), (std::vector<std::string>{page, page}));
  }

  const OpenedPages& Opened() const { return opened_; }

 private:
  std::filesystem::path help_path_;
  OpenedPages opened_;
};

struct Place {
  const char* name;
  int command;
  int context;
  const char* page;
};
void PrintTo(const Place& place, std::ostream* out) { *out << place.name; }

class HelpOf : public Help, public testing::WithParamInterface<Place> {};

TEST_P(HelpOf, ItsDialogIsItsTopicByButtonAndByF1) {
  const DialogScript script([this](HWND dialog) { AskEveryWayAndClose(dialog); });
  RunCommand(GetParam().command);
  ExpectEveryAnswerIs(GetParam().context, GetParam().page);
}

INSTANTIATE_TEST_SUITE_P(EveryMenuCommand, HelpOf,
                         testing::Values(Place{"GetData", CM_GET_DATA, 102, "getting_data"},
                                         Place{"SendData", CM_SEND_DATA, 103, "sending_data"},
                                         Place{"MemoryList", CM_VIEW, 106, "memory_list"},
                                         Place{"Groups", CM_GROUP, 120, "groups"},
                                         Place{"VfoA", CM_VFO_A_FIRST, 111, "home_and_vfo_editor"},
                                         Place{"VfoB", CM_VFO_B_FIRST, 111, "home_and_vfo_editor"},
                                         Place{"Home", CM_HOME_LAST, 111, "home_and_vfo_editor"},
                                         Place{"Autodial", CM_AUTODIAL, 108, "autodial"},
                                         Place{"Settings", CM_SETTINGS, 121, "settings"},
                                         Place{"Vorn", CM_VORN, 119, "vorn"},
                                         Place{"WxNames", CM_WX_NAMES, 123, "wx_names"},
                                         Place{"Icons", CM_ICON_SELECT, 125, "icons"},
                                         Place{"Preferences", CM_PREFERENCES, 122, "preferences"}),
                         [](const testing::TestParamInfo<Place>& place) {
                           return std::string(place.param.name);
                         });

TEST_F(Help, OfTheEditorOfAMemoryChannelIsItsOwn) {
  const DialogScript list([](HWND dialog) { Press(dialog, ID_EDIT_CHANNEL); });
  const DialogScript editor([this](HWND dialog) {
    AskEveryWayAndClose(dialog);
    PostMessageA(GetWindow(dialog, GW_OWNER), WM_CLOSE, 0, 0);
  });
  RunCommand(CM_VIEW);
  ExpectEveryAnswerIs(107, "channel_editor");
}

TEST_F(Help, OfCopyMany) {
  CopyMany chosen;
  const DialogScript script([this](HWND dialog) {
    AskEveryWay(dialog);
    Press(dialog, IDCANCEL);
  });
  ShowCopyManyDialog(1, chosen);
  ExpectEveryAnswerIs(112, "copy_many");
}

TEST_F(Help, OfMerging) {
  CloneImage source{};
  MakeNewImage(source);
  ASSERT_TRUE(WriteRadioDataFile(source, folder.File("other.rdf")));
  test_seams.files = {Chosen(folder.File("other.rdf"))};
  const DialogScript script([this](HWND dialog) { AskEveryWayAndClose(dialog); });
  RunCommand(CM_MERGE);
  ExpectEveryAnswerIs(110, "merge");
}

TEST_F(Help, OfDataSent) {
  const DialogScript script([this](HWND dialog) { AskEveryWayAndClose(dialog); });
  RunDialog("DLLDlgWriteRadioDone", DlgProcWriteRadioDone, nullptr);
  ExpectEveryAnswerIs(104, "data_sent");
}

TEST_F(Help, OfThePortSetupByF1) {
  const DialogScript script([this](HWND dialog) {
    SetFocus(GetDlgItem(dialog, ID_PORT));
    PressF1();
    EXPECT_TRUE(HandleMessagesUntil([] { return !asked.empty(); }));
    MoveProgram();
    PressF1();
    EXPECT_EQ(Pages(1), std::vector<std::string>{"com_port"});
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
  const DialogScript columns([this](HWND dialog) { AskEveryWayAndClose(dialog); });
  RunCommand(CM_IMPORT);
  ExpectEveryAnswerIs(224, "import_columns");
}

TEST_F(Help, InTheMainWindowF1OpensTheContents) {
  SetFocus(GetDlgItem(app.main_dialog, ID_FILE_COMMENT));
  PressF1();
  EXPECT_TRUE(HandleMessagesUntil([] { return !asked.empty(); }));
  EXPECT_EQ(asked, (std::vector<Asked>{{folder.File("qz7.hlp"), HELP_CONTENTS, 0}}));
  MoveProgram();
  PressF1();
  EXPECT_EQ(Pages(1), std::vector<std::string>{"contents"});
}

TEST_F(Help, TheMenuOpensContentsSearchAndHelpOnHelp) {
  RunCommand(CM_HELP_CONTENTS);
  RunCommand(CM_HELP_SEARCH);
  RunCommand(CM_HELP_ON_HELP);
  EXPECT_EQ(asked, (std::vector<Asked>{{folder.File("qz7.hlp"), HELP_CONTENTS, 0},
                                       {folder.File("qz7.hlp"), HELP_PARTIALKEY, 0},
                                       {"WINHELP.HLP", HELP_CONTENTS, 0}}));
}

TEST_F(Help, WithoutAViewerTheMenuOpensThePages) {
  MoveProgram();
  has_viewer = false;
  std::vector<std::string> expected;
  for (const auto& [command, page] : {std::pair{CM_HELP_CONTENTS, "contents"},
                                      {CM_HELP_SEARCH, "search"},
                                      {CM_HELP_ON_HELP, "searching"}}) {
    RunCommand(command);
    expected.emplace_back(page);
    EXPECT_EQ(Pages(expected.size()), expected);
  }
  EXPECT_TRUE(asked.empty());
}

TEST_F(Help, IsToldToQuitWhenTheProgramCloses) {
  SendMessageA(app.main_window, WM_CLOSE, 0, 0);
  EXPECT_EQ(asked, (std::vector<Asked>{{folder.File("qz7.hlp"), HELP_QUIT, 0}}));
  EXPECT_FALSE(IsWindow(app.main_window));
}

TEST_F(Help, IsNotToldToQuitWhenTheUserKeepsTheProgramOpen) {
  app.document.changed = true;
  test_seams.answers = {Answer::kCancel};
  SendMessageA(app.main_window, WM_CLOSE, 0, 0);
  EXPECT_TRUE(asked.empty());
}

TEST_F(Help, OfANumberWithoutATopicIsTheContents) {
  MoveProgram();
  ShowHelp(1000);
  EXPECT_EQ(Pages(1), std::vector<std::string>{"contents"});
}

TEST_F(Help, WhatTheViewerCannotDoIsOnThePages) {
  viewer_searches = has_help_on_help = false;
  std::filesystem::copy(PagesProgramFolder() / "help", folder.path() / "help");
  ShowHelpSearch();
  EXPECT_EQ(Opened().WaitFor(1).at(0), folder.path() / "help" / "search.html");
  ShowHelpOnHelp();
  EXPECT_EQ(Opened().WaitFor(2).at(1), folder.path() / "help" / "searching.html");
  EXPECT_TRUE(asked.empty());
}

TEST_F(Help, IsOnThePagesWhereTheViewerCouldNotBeToldTheFilesName) {
  MoveProgram();
  std::ofstream(dialog_modules.help_path) << "help";
  ShowHelp(103);
  QuitHelp();
  EXPECT_EQ(Pages(1), std::vector<std::string>{"sending_data"});
  EXPECT_TRUE(asked.empty());
}

TEST_F(Help, IsOnThePagesWhereTheViewersFileIsMissing) {
  std::filesystem::copy(PagesProgramFolder() / "help", folder.path() / "help");
  std::filesystem::remove(dialog_modules.help_path);
  ShowHelp(103);
  QuitHelp();
  EXPECT_EQ(Opened().WaitFor(1).at(0), folder.path() / "help" / "sending_data.html");
  EXPECT_TRUE(asked.empty());
}

TEST_F(Help, IsOnThePagesOfAFolderOfAnyLength) {
  const LongFolder long_folder;
  std::filesystem::create_directory(SystemPath(long_folder.path() / "help"));
  long_folder.Put("help\\sending_data.html", "the page");
  dialog_modules.help_path = long_folder.path() / "qz7.hlp";
  ShowHelp(103);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{});
  const std::filesystem::path page = Opened().WaitFor(1).at(0);
  EXPECT_EQ(page.filename(), "sending_data.html");
  EXPECT_EQ(FileBytes(page).size(), 8U);
}

TEST_F(Help, ThatCannotBeOpenedIsSaid) {
  MoveProgram();
  std::filesystem::remove_all(PagesProgramFolder() / "help");
  ShowHelp(103);
  ShowHelpSearch();
  EXPECT_EQ(ShownTexts(),
            (std::vector<std::string>{"Cannot open help page: help\\sending_data.html",
                                      "Cannot open help page: help\\search.html"}));
  EXPECT_TRUE(Opened().WaitFor(0).empty());
}

}  // namespace
}  // namespace qz7
