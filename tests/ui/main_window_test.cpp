#include "desktop/main_window.h"

#include "desktop/commands.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

// A second start brings the first one to the front, from behind another window.
namespace qz7 {
namespace {

int main_activations = 0;

LRESULT CALLBACK CountActivations(int code, WPARAM w, LPARAM l) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(l);
  if (code == HC_ACTION && sent.hwnd == app.main_window && sent.message == WM_ACTIVATE &&
      LOWORD(sent.wParam) != WA_INACTIVE) {
    ++main_activations;
  }
  return CallNextHookEx(nullptr, code, w, l);
}

class BringingToFront : public WindowTest {
 protected:
  ~BringingToFront() override { DestroyWindow(other_); }

  // What a second start does once another window is in front.
  void BringMainWindowToFront() {
    SetForegroundWindow(other_);
    ASSERT_EQ(GetActiveWindow(), other_);
    const HHOOK hook =
        SetWindowsHookExA(WH_CALLWNDPROC, CountActivations, nullptr, GetCurrentThreadId());
    main_activations = 0;
    BringToFront(app.main_window);
    UnhookWindowsHookEx(hook);
  }

 private:
  HWND other_ = CreateWindowExA(0, "STATIC", "other", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                nullptr, nullptr, nullptr);
};

TEST_F(BringingToFront, ActivatesTheMainWindowWhereNothingElseIsOpen) {
  BringMainWindowToFront();
  EXPECT_EQ(GetActiveWindow(), app.main_window);
  EXPECT_EQ(main_activations, 1);
}

TEST_F(BringingToFront, GivesTheKeyboardToTheDialogAndNeverToTheDisabledMainWindow) {
  const DialogScript script([this](HWND dialog) {
    BringMainWindowToFront();
    EXPECT_EQ(GetActiveWindow(), dialog);
    EXPECT_TRUE(IsChild(dialog, GetFocus()));
    EXPECT_EQ(main_activations, 0);
    Press(dialog, IDCANCEL);
  });
  RunCommand(CM_PREFERENCES);
}

TEST_F(BringingToFront, FindsTheDialogAlsoWhenTheDisabledMainWindowWasTheLastActive) {
  const DialogScript script([this](HWND dialog) {
    SetForegroundWindow(app.main_window);
    BringMainWindowToFront();
    EXPECT_EQ(GetActiveWindow(), dialog);
    EXPECT_EQ(main_activations, 0);
    Press(dialog, IDCANCEL);
  });
  RunCommand(CM_PREFERENCES);
}

TEST_F(BringingToFront, RestoresAMinimizedMainWindow) {
  ShowWindow(app.main_window, SW_MINIMIZE);
  BringMainWindowToFront();
  EXPECT_FALSE(IsIconic(app.main_window));
  EXPECT_EQ(GetActiveWindow(), app.main_window);
}

TEST_F(BringingToFront, RestoresAMinimizedMainWindowWithADialogWithoutActivatingIt) {
  const DialogScript script([this](HWND dialog) {
    ShowWindow(app.main_window, SW_MINIMIZE);
    BringMainWindowToFront();
    EXPECT_FALSE(IsIconic(app.main_window));
    EXPECT_EQ(GetActiveWindow(), dialog);
    EXPECT_EQ(main_activations, 0);
    Press(dialog, IDCANCEL);
  });
  RunCommand(CM_PREFERENCES);
}

using MainWindowFocus = WindowTest;

LRESULT SelectionOf(HWND field) { return SendMessageA(field, EM_GETSEL, 0, 0); }

TEST_F(MainWindowFocus, IsAtTheFirstFieldUntilAnotherHadIt) {
  SetFocus(nullptr);
  SetFocus(app.main_window);
  EXPECT_EQ(GetFocus(), GetDlgItem(app.main_dialog, ID_FILE_COMMENT));
}

TEST_F(MainWindowFocus, ComesBackToTheControlThatHadItAfterADialog) {
  for (const int control : {ID_LAMP, ID_SWITCH_3, ID_STORE_DEFAULTS}) {
    const HWND had_it = GetDlgItem(app.main_dialog, control);
    SetFocus(had_it);
    const DialogScript script([](HWND dialog) { Press(dialog, IDCANCEL); });
    RunCommand(CM_PREFERENCES);
    EXPECT_EQ(GetFocus(), had_it) << control;
  }
}

TEST_F(MainWindowFocus, ComesBackToTheControlThatHadItAfterAnotherWindow) {
  const HWND other = CreateWindowExA(0, "STATIC", "other", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                     nullptr, nullptr, nullptr, nullptr);
  const HWND had_it = GetDlgItem(app.main_dialog, ID_BELL);
  SetFocus(had_it);
  SetForegroundWindow(other);
  ASSERT_NE(GetFocus(), had_it);
  SetForegroundWindow(app.main_window);
  EXPECT_EQ(GetFocus(), had_it);
  DestroyWindow(other);
}

TEST_F(MainWindowFocus, LeavesTheCaretInTheCommentWhereItWas) {
  const HWND comment = GetDlgItem(app.main_dialog, ID_FILE_COMMENT);
  SetFocus(comment);
  Type(app.main_dialog, ID_FILE_COMMENT, "comment");
  SendMessageA(comment, EM_SETSEL, 3, 3);
  const DialogScript script([](HWND dialog) { Press(dialog, IDOK); });
  RunCommand(CM_ABOUT);
  EXPECT_EQ(GetFocus(), comment);
  EXPECT_EQ(SelectionOf(comment), MAKELRESULT(3, 3));
}

using MainWindowIcon = WindowTest;

TEST_F(MainWindowIcon, IsDrawnForTheCaptionsSizeAndNotScaledDown) {
  const HANDLE small_icon =
      LoadImageA(dialog_modules.program, "Icon", IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                 GetSystemMetrics(SM_CYSMICON), LR_SHARED);
  ASSERT_NE(small_icon, nullptr);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system gives the handle as a number
  EXPECT_EQ(reinterpret_cast<HANDLE>(GetClassLongPtrA(app.main_window, GCLP_HICONSM)), small_icon);
}

}  // namespace
}  // namespace qz7
