#include "desktop/printing/printing.h"

#include <winspool.h>

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <optional>

#include "desktop/commands.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

// File, Print through the real progress dialog. What reaches a printer is read from its paper by
// the test of the print queue, which runs the tests named OnAPrinter with a printer's name.
namespace qz7 {
namespace {

// The user's side of the print box: the answers, and how often it was shown.
std::deque<std::optional<ChosenPrinter>> print_answers;
int print_boxes = 0;

}  // namespace

// What the program exports.
extern "C" INT_PTR CALLBACK DlgProcPrinting(HWND dialog, UINT message, WPARAM w, LPARAM l);

std::optional<ChosenPrinter> ShowPrintBox() {
  ++print_boxes;
  if (print_answers.empty()) {
    return std::nullopt;
  }
  const auto answer = print_answers.front();
  print_answers.pop_front();
  return answer;
}

namespace {

class PrintingDialog : public WindowTest {
 protected:
  PrintingDialog() {
    print_answers.clear();
    print_boxes = 0;
  }
};

TEST_F(PrintingDialog, IsPrecededByABoxForOneCollatedCopyOfEverything) {
  const PRINTDLGA box = MakePrintBox(app.main_window);
  EXPECT_EQ(box.hwndOwner, app.main_window);
  EXPECT_EQ(box.nCopies, 1);
  EXPECT_EQ(box.Flags,
            static_cast<DWORD>(PD_RETURNDC | PD_COLLATE | PD_NOSELECTION | PD_NOPAGENUMS));
  EXPECT_EQ(box.lStructSize, sizeof(PRINTDLGA));
  EXPECT_EQ(box.hDevMode, nullptr);
}

TEST_F(PrintingDialog, DoesNotComeWhenTheUserCancelsThePrintBox) {
  RunCommand(CM_PRINT);
  EXPECT_EQ(print_boxes, 1);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_TRUE(IsWindowEnabled(app.main_window));
}

TEST_F(PrintingDialog, ADeviceThatIsNoPrinterRefusesTheDocument) {
  const CloneImage before = app.document.image;
  print_answers.push_back(ChosenPrinter{.device = CreateCompatibleDC(nullptr), .copies = 1});
  RunCommand(CM_PRINT);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Printing Failed (2)."});
  EXPECT_TRUE(IsWindowEnabled(app.main_window));
  EXPECT_EQ(GetLastActivePopup(app.main_window), app.main_window);
  EXPECT_EQ(app.document.image, before);
}

TEST_F(PrintingDialog, ADeviceThatTakesNoAbortCallbackIsReportedFirst) {
  print_answers.push_back(ChosenPrinter{.device = nullptr, .copies = 1});
  RunCommand(CM_PRINT);
  EXPECT_EQ(ShownTexts(),
            (std::vector<std::string>{"Printing Failed (1).", "Printing Failed (2)."}));
}

TEST_F(PrintingDialog, DoesNotCollectTheMainDialogFirst) {
  SendDlgItemMessageA(app.main_dialog, ID_LOCK, CB_SETCURSEL, 3, 0);
  const CloneImage before = app.document.image;
  RunCommand(CM_PRINT);
  EXPECT_EQ(app.document.image, before);
  EXPECT_FALSE(app.document.changed);
}

HWND OpenProgress(PrintJob& job) {
  job.document_name = "mine.rdf";
  const HWND dialog = CreateModelessDialog("DlgPrinting", app.main_window, DlgProcPrinting, &job);
  ShowWindow(dialog, SW_SHOW);
  SetActiveWindow(dialog);
  return dialog;
}

TEST_F(PrintingDialog, ItsCloseIsGrey) {
  PrintJob job;
  const HWND dialog = OpenProgress(job);
  EXPECT_EQ(TextOf(dialog, ID_PRINTED_DOCUMENT), "Printing mine.rdf");
  const UINT close = GetMenuState(GetSystemMenu(dialog, FALSE), SC_CLOSE, MF_BYCOMMAND);
  EXPECT_NE(close & MF_GRAYED, 0U);
  DestroyWindow(dialog);
}

TEST_F(PrintingDialog, TheKeyboardCancelsToo) {
  for (const WPARAM key : {VK_ESCAPE, VK_RETURN, VK_SPACE}) {
    PrintJob job;
    const HWND dialog = OpenProgress(job);
    EXPECT_TRUE(HandleMessagesWhilePrinting(job, dialog));
    SetFocus(GetDlgItem(dialog, IDCANCEL));
    PostMessageA(GetFocus(), WM_KEYDOWN, key, 0);
    PostMessageA(GetFocus(), WM_KEYUP, key, 0);
    EXPECT_FALSE(HandleMessagesWhilePrinting(job, dialog)) << key;
    DestroyWindow(dialog);
  }
}

TEST_F(PrintingDialog, AMessageToQuitEndsTheJobAndThenTheProgram) {
  PrintJob job;
  EXPECT_TRUE(HandleMessagesWhilePrinting(job, nullptr));
  PostQuitMessage(7);
  EXPECT_FALSE(HandleMessagesWhilePrinting(job, nullptr));
  EXPECT_TRUE(job.aborted);
  EXPECT_FALSE(HandleMessagesWhilePrinting(job, nullptr));
  MSG message{};
  while (message.message != WM_QUIT && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    DispatchMessageA(&message);
  }
  EXPECT_EQ(message.message, WM_QUIT);
  EXPECT_EQ(message.wParam, 7U);
}

// What the progress dialog shows, one text after the other, and the user's press of Cancel.
std::vector<std::string> shown;
std::string cancel_at;
std::string pictured_text;
HWND progress = nullptr;

LRESULT CALLBACK NoteTexts(int code, WPARAM w, LPARAM l) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(l);
  const int id = code == HC_ACTION ? GetDlgCtrlID(sent.hwnd) : 0;
  if (code == HC_ACTION && sent.message == WM_SETTEXT && id >= ID_PRINTED_DOCUMENT &&
      id <= ID_PRINTED_COPY) {
    progress = GetParent(sent.hwnd);
    shown.emplace_back(reinterpret_cast<const char*>(sent.lParam));
    if (shown.back() == pictured_text) {
      SavePicture(progress, "printing");
    }
    if (shown.back() == cancel_at) {
      PostMessageA(GetDlgItem(progress, IDCANCEL), BM_CLICK, 0, 0);
    }
  }
  return CallNextHookEx(nullptr, code, w, l);
}

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

// The printer that QZ7_PRINTER names gets the document of the folder QZ7_PRINTED that has the
// test's name.
class OnAPrinter : public PrintingDialog {
 protected:
  void SetUp() override {
    const std::string name = Environment("QZ7_PRINTER");
    if (name.empty()) {
      GTEST_SKIP() << "no printer: the test of the print queue names one";
    }
    // A program learns of the printers by asking for them.
    DWORD size = 0;
    DWORD count = 0;
    EnumPrintersA(PRINTER_ENUM_LOCAL, nullptr, 2, nullptr, 0, &size, &count);
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    const bool narrow = test == "OnNarrowPaper";
    DEVMODEA settings{};
    settings.dmSize = sizeof settings;
    settings.dmFields = DM_PAPERSIZE | DM_ORIENTATION;
    settings.dmPaperSize = narrow ? DMPAPER_A4 : DMPAPER_A3;
    settings.dmOrientation = narrow ? DMORIENT_PORTRAIT : DMORIENT_LANDSCAPE;
    device_ = CreateDCA("WINSPOOL", name.c_str(), nullptr, &settings);
    ASSERT_NE(device_, nullptr) << "the system knows " << size << " bytes of printers";
    OpenNamedDocument(app.document, Environment("QZ7_PRINTED") + "\\" + test + ".RDF");
    ASSERT_EQ(app.document.name, test + ".RDF");
    shown.clear();
    cancel_at.clear();
    pictured_text.clear();
    hook_ = SetWindowsHookExA(WH_CALLWNDPROC, NoteTexts, nullptr, GetCurrentThreadId());
    ASSERT_NE(hook_, nullptr);
  }
  void TearDown() override { UnhookWindowsHookEx(hook_); }

  void Print(int copies) {
    print_answers.push_back(ChosenPrinter{.device = device_, .copies = copies});
    RunCommand(CM_PRINT);
    EXPECT_TRUE(IsWindowEnabled(app.main_window));
    EXPECT_FALSE(IsWindow(progress));
  }

  HDC device_ = nullptr;
  HHOOK hook_ = nullptr;
};

TEST_F(OnAPrinter, OneCopy) {
  Print(1);
  ASSERT_GE(shown.size(), 3U);
  EXPECT_EQ(shown[0], "Printing OneCopy.RDF");
  EXPECT_EQ(shown[1], "Page 1");
  EXPECT_EQ(shown[2], "Page 2");
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(OnAPrinter, OnNarrowPaper) {
  Print(1);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(OnAPrinter, TwoCopies) {
  pictured_text = "Copy 2 of 2";
  Print(2);
  ASSERT_GE(shown.size(), 3U);
  EXPECT_EQ(shown[1], "Copy 1 of 2");
  EXPECT_EQ(shown[2], "Page 1");
  const auto second = std::find(shown.begin(), shown.end(), "Copy 2 of 2");
  ASSERT_NE(second, shown.end());
  // Each copy shows the same pages, from the first on.
  EXPECT_TRUE(std::equal(shown.begin() + 2, second, second + 1, shown.end()));
  EXPECT_TRUE(test_seams.messages.empty());
}

// A queue that takes no jobs: the system asks it when the document ends.
TEST_F(OnAPrinter, RefusedByTheQueue) {
  const CloneImage before = app.document.image;
  Print(1);
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Printing Failed (3)"});
  EXPECT_EQ(app.document.image, before);
}

TEST_F(OnAPrinter, CancelledInTheMiddle) {
  cancel_at = "Page 2";
  Print(2);
  EXPECT_EQ(std::count(shown.begin(), shown.end(), "Copy 2 of 2"), 0);
  EXPECT_TRUE(test_seams.messages.empty());
}

}  // namespace
}  // namespace qz7
