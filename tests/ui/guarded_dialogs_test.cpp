#include <new>
#include <stdexcept>

#include "desktop/commands.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/failing_new.h"

// Windows outlive what goes wrong inside them.
namespace qz7 {
namespace {

UINT throws_at = 0;

INT_PTR CALLBACK ThrowingProc(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  if (message == throws_at && message == WM_INITDIALOG) {
    throw std::bad_alloc();
  }
  if (message == throws_at && LOWORD(w) == IDOK) {
    throw std::runtime_error("the printer burns");
  }
  if (message == WM_INITDIALOG) {
    SetUpDialog(dialog, l);
  } else if (message == WM_COMMAND && LOWORD(w) == IDCANCEL) {
    EndDialog(dialog, 7);
  }
  return message == WM_INITDIALOG;
}

INT_PTR ShowThrowing() { return RunDialog("DLLDlgAbout", ThrowingProc, nullptr); }

using GuardedDialogs = WindowTest;

TEST_F(GuardedDialogs, ADialogThatCannotBeOpenedSaysWhyAndIsCancelled) {
  throws_at = WM_INITDIALOG;
  EXPECT_EQ(ShowThrowing(), -1);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Out of memory"});
  EXPECT_EQ(CreateModelessDialog("DLLDlgAbout", app.main_window, ThrowingProc, nullptr), nullptr);
  EXPECT_TRUE(IsWindowEnabled(app.main_window));
}

TEST_F(GuardedDialogs, ADialogStaysWhenACommandFailsInIt) {
  throws_at = WM_COMMAND;
  const DialogScript script([](HWND dialog) {
    SendMessageA(dialog, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"the printer burns"});
    SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  });
  EXPECT_EQ(ShowThrowing(), 7);
}

// Runs a command until memory suffices; the window and the document have to live through it.
void RunUntilEnough(int command, const std::function<void()>& prepare) {
  bool failed = true;
  for (std::size_t n = 1; failed; ++n) {
    test_seams = TestSeams{};
    prepare();
    const std::string name = app.document.name;
    const std::string step = std::to_string(command) + ", allocation " + std::to_string(n);
    SCOPED_TRACE(step);
    const FailingNew failing(n);
    RunCommand(command);
    failed = failing.HasFailed();
    const UncountedNew checks;
    ASSERT_TRUE(IsWindow(app.main_window));
    ASSERT_TRUE(IsWindow(app.main_dialog));
    if (failed) {
      ASSERT_EQ(ShownTexts(), std::vector<std::string>{"Out of memory"});
      ASSERT_EQ(app.document.name, name);
    }
  }
}

TEST_F(GuardedDialogs, NewOpenAndSaveLiveThroughEveryMissingAllocation) {
  RunUntilEnough(CM_NEW, [] {});
  const std::string path = folder.File("a document with a long name.rdf");
  PutFile(path, IntactFile("RDF"));
  RunUntilEnough(CM_OPEN, [&] { test_seams.files = {Chosen(path)}; });
  EXPECT_EQ(app.document.name, "a document with a long name.rdf");
  RunUntilEnough(CM_SAVE, [] {});
  EXPECT_EQ(FileBytes(path).size(), 21'282U);
}

}  // namespace
}  // namespace qz7
