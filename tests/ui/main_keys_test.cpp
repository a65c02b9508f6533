#include <algorithm>

#include "core/files/document_header.h"
#include "desktop/commands.h"
#include "desktop/message_loop.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

// The keys of the main window's commands, through the program's own message loop.
namespace qz7 {
namespace {

using Held = std::vector<int>;

std::vector<int> commands_seen;
WNDPROC main_window_proc = nullptr;

LRESULT CALLBACK SeeCommand(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_COMMAND) {
    commands_seen.push_back(LOWORD(w));
    return 0;
  }
  return CallWindowProcA(main_window_proc, window, message, w, l);
}

// The keyboard is in the comment.
class MainKeys : public WindowTest {
 protected:
  MainKeys() { SetFocus(Comment()); }

  static HWND Comment() { return GetDlgItem(app.main_dialog, ID_FILE_COMMENT); }

  // The key goes down while these are held, and the program runs until it is told to end.
  static void RunWithKey(int key, const Held& held) {
    BYTE keys[256] = {};
    for (const int modifier : held) {
      keys[modifier] = 0x80;
    }
    SetKeyboardState(keys);
    PostMessageA(Comment(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    RunMessageLoop();
    SetKeyboardState(std::vector<BYTE>(256).data());
  }

  static void PressKey(int key, const Held& held) {
    PostQuitMessage(0);
    RunWithKey(key, held);
  }

  // What the main window would run; it runs nothing.
  static std::vector<int> CommandsOf(int key, const Held& held) {
    commands_seen.clear();
    main_window_proc = SwapProcedure(SeeCommand);
    PressKey(key, held);
    SwapProcedure(main_window_proc);
    return commands_seen;
  }

 private:
  static WNDPROC SwapProcedure(WNDPROC procedure) {
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(app.main_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
  }
};

struct KeyOfCommand {
  int key;
  Held held;
  int command;
};
const KeyOfCommand kKeys[] = {
    {'N', {VK_CONTROL}, CM_NEW},      {'O', {VK_CONTROL}, CM_OPEN},
    {'S', {VK_CONTROL}, CM_SAVE},     {'S', {VK_CONTROL, VK_SHIFT}, CM_SAVE_AS},
    {'P', {VK_CONTROL}, CM_PRINT},    {'I', {VK_CONTROL}, CM_IMPORT},
    {'E', {VK_CONTROL}, CM_EXPORT},   {'M', {VK_CONTROL}, CM_VIEW},
    {'G', {VK_CONTROL}, CM_GET_DATA}, {'T', {VK_CONTROL}, CM_SEND_DATA}};

TEST_F(MainKeys, EachRunsItsCommandAndTypesNothing) {
  Type(app.main_dialog, ID_FILE_COMMENT, "typed");
  for (const auto& [key, held, command] : kKeys) {
    EXPECT_EQ(CommandsOf(key, held), std::vector<int>{command}) << static_cast<char>(key);
  }
  EXPECT_EQ(TextOf(app.main_dialog, ID_FILE_COMMENT), "typed");
}

TEST_F(MainKeys, AreTheseAndNoOthers) {
  EXPECT_EQ(Accelerators(Commands()).size(), std::size(kKeys));
  for (int key = 'A'; key <= 'Z'; ++key) {
    for (const Held& held : {Held{VK_CONTROL}, Held{VK_CONTROL, VK_SHIFT}}) {
      const bool wanted = std::any_of(std::begin(kKeys), std::end(kKeys), [&](const auto& one) {
        return one.key == key && one.held == held;
      });
      EXPECT_EQ(CommandsOf(key, held).size(), wanted ? 1U : 0U) << static_cast<char>(key);
    }
  }
}

TEST_F(MainKeys, AreNoneOfAField) {
  const std::string of_a_field = "ACHVXYZ";
  for (const ACCEL& key : Accelerators(Commands())) {
    EXPECT_EQ(of_a_field.find(static_cast<char>(key.key)), std::string::npos) << key.cmd;
  }
}

// The key beside the space bar of most European keyboards is Ctrl and Alt at once.
TEST_F(MainKeys, LeaveWhatIsTypedWithAltAndCtrlToTheField) {
  EXPECT_EQ(CommandsOf('E', {VK_CONTROL, VK_MENU}), std::vector<int>{});
  EXPECT_EQ(CommandsOf('M', {VK_CONTROL, VK_MENU}), std::vector<int>{});
  EXPECT_EQ(CommandsOf('N', {}), std::vector<int>{});
}

TEST_F(MainKeys, RunNothingWhileADialogDisablesTheWindow) {
  EnableWindow(app.main_window, FALSE);
  for (const auto& [key, held, command] : kKeys) {
    EXPECT_EQ(CommandsOf(key, held), std::vector<int>{}) << static_cast<char>(key);
  }
  EnableWindow(app.main_window, TRUE);
}

TEST_F(MainKeys, SaveWhatTheCommentHolds) {
  Type(app.main_dialog, ID_FILE_COMMENT, "kept");
  test_seams.files = {Chosen(folder.File("mine.rdf"))};
  PressKey('S', {VK_CONTROL, VK_SHIFT});
  EXPECT_EQ(app.document.path, folder.File("mine.rdf"));
  EXPECT_EQ(std::string(FileComment(app.document.image)), "kept");
}

TEST_F(MainKeys, OpenTheMemoryListAndTheKeyboardComesBack) {
  const DialogScript script([](HWND dialog) {
    EXPECT_NE(GetDlgItem(dialog, ID_CHANNEL_LIST), nullptr);
    Press(dialog, IDCANCEL);
    PostQuitMessage(0);
  });
  RunWithKey('M', {VK_CONTROL});
  EXPECT_EQ(GetFocus(), Comment());
}

}  // namespace
}  // namespace qz7
