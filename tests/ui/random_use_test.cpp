#include <windows.h>
// Behind <windows.h>.
#include <psapi.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <set>
#include <string_view>

#include "core/files/radio_data_file.h"
#include "desktop/commands.h"
#include "desktop/message_loop.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"
#include "tests/ui/dropping.h"
#include "tests/ui/window_fixture.h"

// A user without a plan: any menu command, any control of the window on top, any answer to a box.
// The seed is always the same; "--steps N" makes it N steps instead of ten thousand.
namespace qz7 {
namespace {

constexpr int kWarmUp = 5'000;  // what the system keeps for good (fonts, marks) is there then
constexpr unsigned kSeed = 8;
constexpr int kRound = 10'000;  // steps after which everything is closed and counted
constexpr UINT kNextAction = WM_APP + 1;

std::mt19937 random_source;

int Below(int limit) { return static_cast<int>(random_source() % static_cast<unsigned>(limit)); }

BOOL CALLBACK AddUsable(HWND control, LPARAM list) {
  if (IsWindowVisible(control) && IsWindowEnabled(control) && GetDlgCtrlID(control) > 0) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(control);
  }
  return TRUE;
}

void Notify(HWND control, int code) {
  SendMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
               reinterpret_cast<LPARAM>(control));
}

void ChooseAny(HWND list, UINT count_message, UINT choose_message, int changed) {
  const auto count = static_cast<int>(SendMessageA(list, count_message, 0, 0));
  SendMessageA(list, choose_message, static_cast<WPARAM>(Below(count + 1)), 0);
  Notify(list, changed);
}

void TypeAny(HWND field) {
  static constexpr std::array kKeys = {'0', '1', '4', '5', '9',  '.',    ',',    ' ',
                                       'A', 'z', '#', '-', '\b', '\xB1', '\xE4', '"'};
  if (Below(4) == 0) {
    SendMessageA(field, EM_SETSEL, 0, -1);
  }
  for (int n = Below(6); n >= 0; --n) {
    SendMessageA(field, WM_CHAR,
                 static_cast<unsigned char>(kKeys[static_cast<std::size_t>(Below(kKeys.size()))]),
                 0);
  }
  SendMessageA(GetParent(field), WM_NEXTDLGCTL, 0, FALSE);
}

// A key that goes down in a list, with one held beside it or without. Ctrl+F opens a window: what
// is held there is as the next key has it.
void PressAnyKey(HWND list) {
  static constexpr std::array kKeys = {VK_UP,    VK_DOWN,  VK_INSERT, VK_DELETE, VK_HOME,
                                       VK_END,   VK_F3,    int{'A'},  int{'C'},  int{'F'},
                                       int{'V'}, int{'X'}, int{'Y'},  int{'Z'}};
  static constexpr std::array kHeld = {0, VK_SHIFT, VK_CONTROL, VK_CONTROL, VK_MENU};
  const int key = kKeys[static_cast<std::size_t>(Below(kKeys.size()))];
  const int held = kHeld[static_cast<std::size_t>(Below(kHeld.size()))];
  BYTE keys[256] = {};
  keys[held] = 0x80;
  keys[0] = 0;
  SetKeyboardState(keys);
  SendMessageA(list, held == VK_MENU ? WM_SYSKEYDOWN : WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  SendMessageA(list, WM_CHAR, static_cast<WPARAM>('0' + Below(75)), 0);
  keys[held] = 0;
  SetKeyboardState(keys);
}

// A key of the main window's, as its message loop takes it.
void PressAnyCommandKey() {
  std::vector<ACCEL> keys = Accelerators(Commands());
  const HACCEL table = CreateAcceleratorTableA(keys.data(), static_cast<int>(keys.size()));
  const ACCEL& key = keys[static_cast<std::size_t>(Below(static_cast<int>(keys.size())))];
  BYTE held[256] = {};
  held[VK_CONTROL] = 0x80;
  held[VK_SHIFT] = (key.fVirt & FSHIFT) != 0 ? 0x80 : 0;
  SetKeyboardState(held);
  MSG message{};
  message.hwnd = GetFocus();
  message.message = WM_KEYDOWN;
  message.wParam = key.key;
  // The command begins while it is held, and the next one has keys of its own.
  EXPECT_NE(TranslateAcceleratorA(app.main_window, table, &message), 0);
  SetKeyboardState(std::array<BYTE, 256>{}.data());
  DestroyAcceleratorTable(table);
}

// What another program has copied: nothing, a list, or no list at all.
void PutAnyTextOnClipboard() {
  static constexpr std::array kTexts = {"", "RX Frequency\tName\r\n145.5\tAnna\r\n433.5\tBert\r\n",
                                        "145.5,Anna\n", "a shopping list\n", "\xFF\xFE\x01"};
  const std::string text = kTexts[static_cast<std::size_t>(Below(kTexts.size()))];
  if (!OpenClipboard(app.main_window)) {
    return;
  }
  EmptyClipboard();
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
  std::memcpy(GlobalLock(memory), text.c_str(), text.size() + 1);
  GlobalUnlock(memory);
  SetClipboardData(CF_TEXT, memory);
  CloseClipboard();
}

// One thing that a user can do with a control, by its kind.
void Use(HWND control) {
  char kind[32] = "";
  GetClassNameA(control, kind, sizeof kind);
  if (lstrcmpiA(kind, "Button") == 0) {
    SendMessageA(control, BM_CLICK, 0, 0);
  } else if (lstrcmpiA(kind, "ComboBox") == 0) {
    ChooseAny(control, CB_GETCOUNT, CB_SETCURSEL, CBN_SELCHANGE);
  } else if (lstrcmpiA(kind, "ListBox") == 0 && Below(2) == 0) {
    PressAnyKey(control);
  } else if (lstrcmpiA(kind, "ListBox") == 0) {
    ChooseAny(control, LB_GETCOUNT, LB_SETCURSEL, Below(4) == 0 ? LBN_DBLCLK : LBN_SELCHANGE);
  } else if (lstrcmpiA(kind, "Edit") == 0) {
    TypeAny(control);
  }
}

Answer AnyAnswer(Buttons buttons) {
  switch (buttons) {
    case Buttons::kYesNo:
      return Below(2) == 0 ? Answer::kYes : Answer::kNo;
    case Buttons::kYesNoCancel:
      return std::array{Answer::kYes, Answer::kNo,
                        Answer::kCancel}[static_cast<std::size_t>(Below(3))];
    case Buttons::kRetryCancel:
      return Below(2) == 0 ? Answer::kRetry : Answer::kCancel;
    default:
      return Answer::kOk;
  }
}

// Acts again and again, whatever message loop is running.
class RandomUser {
 public:
  explicit RandomUser(const TempFolder& folder) : folder_(folder) {
    WNDCLASSA kind{};
    kind.lpfnWndProc = Procedure;
    kind.hInstance = GetModuleHandleA(nullptr);
    kind.lpszClassName = "RandomUser";
    RegisterClassA(&kind);
    window_ = CreateWindowExA(0, kind.lpszClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              kind.hInstance, nullptr);
    user_ = this;
    test_seams.answer = AnyAnswer;
    test_seams.file = [this] { return AnyFile(); };
  }
  RandomUser(const RandomUser&) = delete;
  RandomUser& operator=(const RandomUser&) = delete;
  ~RandomUser() {
    DestroyWindow(window_);
    user_ = nullptr;
    test_seams.answer = nullptr;
    test_seams.file = nullptr;
  }

  // Then closes what is still open.
  void Act(int actions) {
    left_ = actions;
    PostMessageA(window_, kNextAction, 0, 0);
    ASSERT_TRUE(HandleMessagesUntil([&] { return left_ == 0 && DialogOwner() == app.main_window; },
                                    600'000));
  }

  std::set<std::string> seen;   // the captions of the dialogs that were used
  std::set<std::string> notes;  // what came of the commands and drops

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if ((message == kNextAction || message == WM_TIMER) && user_ != nullptr) {
      KillTimer(window, 1);
      user_->Next();
      return 0;
    }
    return DefWindowProcA(window, message, w, l);
  }

  // The one after this is on its way first: this one may open a dialog with a loop of its own.
  void Next() {
    constexpr int kBreather = 50;  // now and then, the timers of others get their turn
    if (left_ == 0 && DialogOwner() == app.main_window) {
      return;
    }
    if (left_ % kBreather == 0) {
      SetTimer(window_, 1, USER_TIMER_MINIMUM, nullptr);
    } else {
      PostMessageA(window_, kNextAction, 0, 0);
    }
    if (left_ == 0) {
      SendMessageA(DialogOwner(), WM_CLOSE, 0, 0);
      return;
    }
    --left_;
    test_seams.messages.clear();
    notes.insert(app.note);
    OneAction(DialogOwner());
  }

  void OneAction(HWND top) {
    if (top != app.main_window) {
      char caption[64] = "";
      GetWindowTextA(top, caption, sizeof caption);
      seen.insert(caption);
    }
    if (top == app.main_window && Below(3) == 0) {
      Below(2) == 0 ? UseMenu() : UseMainWindow();
      return;
    }
    if (Below(20) == 0) {
      PutAnyTextOnClipboard();
    }
    if (top != app.main_window && Below(40) == 0) {
      SendMessageA(top, WM_CLOSE, 0, 0);
      return;
    }
    std::vector<HWND> controls;
    EnumChildWindows(top, AddUsable, reinterpret_cast<LPARAM>(&controls));
    if (!controls.empty()) {
      Use(controls[static_cast<std::size_t>(Below(static_cast<int>(controls.size())))]);
    }
  }

  static void UseMenu() {
    const int command = CM_NEW + Below(CM_ICON_SELECT - CM_NEW + 1);
    // A close would end the program, and the help is another one.
    if (command != CM_EXIT && !(command >= CM_HELP_ON_HELP && command <= CM_HELP_CONTENTS)) {
      RunCommand(command);
    }
  }

  // One of its keys, or files dropped on it.
  void UseMainWindow() {
    if (Below(2) == 0) {
      PressAnyCommandKey();
      return;
    }
    std::vector<std::filesystem::path> files(static_cast<std::size_t>(1 + Below(2)));
    std::generate(files.begin(), files.end(), [this] { return AnyPath(); });
    PostDrop(MakeDrop(files));
  }

  std::optional<ChosenFile> AnyFile() const {
    return Below(4) == 0 ? std::nullopt : std::optional(Chosen(AnyPath()));
  }

  std::filesystem::path AnyPath() const {
    static constexpr std::array kNames = {"one.rdf", "two.rdf",    "list.txt", "list.csv",
                                          "my.tpl",  "absent.rdf", "photo.jpg"};
    return folder_.path().string() + "\\" + kNames[static_cast<std::size_t>(Below(kNames.size()))];
  }

  static inline RandomUser* user_ = nullptr;
  const TempFolder& folder_;
  HWND window_;
  int left_ = 0;
};

class RandomUse : public WindowTest {
 protected:
  // The defaults file is made in the current folder.
  void SetUp() override {
    GetCurrentDirectoryA(MAX_PATH, before_);
    SetCurrentDirectoryA(folder.path().string().c_str());
  }
  void TearDown() override { SetCurrentDirectoryA(before_); }

 private:
  char before_[MAX_PATH] = "";
};

int StepsOfCommandLine() {
  for (int i = 1; i + 1 < __argc; ++i) {
    if (std::string_view(__argv[i]) == "--steps") {
      return std::atoi(__argv[i + 1]);
    }
  }
  return kRound;
}

// So that the memory that the process has tells what the program keeps.
void ForgetWhatWasSeen(MemoryLine& line) {
  line.sent.clear();
  line.write_sizes.clear();
  line.purges.clear();
  test_seams.open_boxes.clear();
  test_seams.save_boxes.clear();
  test_seams.recent_documents.clear();
  test_seams.profile_writes.clear();
  test_seams.asked_ports.clear();
}

void Tell(int steps, ULONGLONG milliseconds, const ProcessObjects& objects) {
  int gdi_objects = 0;
  int handles = 0;
  for (const auto& [kind, count] : objects.gdi_objects) {
    gdi_objects += count;
  }
  for (const auto& [kind, count] : objects.handles) {
    handles += count;
  }
  PROCESS_MEMORY_COUNTERS memory{};
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  constexpr SIZE_T kKilobyte = 1024;
  std::printf("%d steps, %llu s: %d GDI objects, %zu windows, %d handles, %llu kB\n", steps,
              static_cast<unsigned long long>(milliseconds / 1000), gdi_objects, objects.windows,
              handles, static_cast<unsigned long long>(memory.PagefileUsage / kKilobyte));
  std::fflush(stdout);
}

TEST_F(RandomUse, OfTenThousandStepsLeavesTheProgramAndItsDocumentWhole) {
  random_source.seed(kSeed);
  MemoryLine& line = UsePort<MemoryLine>();
  line.echo = true;
  ProcessObjects before;
  {
    RandomUser user(folder);
    ASSERT_NO_FATAL_FAILURE(user.Act(kWarmUp));
    before = CountObjects();
    user.seen.clear();
    const int steps = StepsOfCommandLine();
    const ULONGLONG began = GetTickCount64();
    Tell(0, 0, before);
    for (int done = 0; done < steps; done += kRound) {
      ASSERT_NO_FATAL_FAILURE(user.Act(std::min(kRound, steps - done)));
      ForgetWhatWasSeen(line);
      ASSERT_TRUE(ComesBackTo(before)) << "after " << done << " steps and a round";
      Tell(std::min(done + kRound, steps), GetTickCount64() - began, CountObjects());
    }
    EXPECT_GE(user.seen.size(), 12U) << "the user has seen too little";
    EXPECT_TRUE(user.notes.contains("photo.jpg is no radio file, list or template"));
  }
  EXPECT_TRUE(ComesBackTo(before));
  EXPECT_FALSE(before.gdi_objects.empty());
  EXPECT_FALSE(before.handles.empty());
  EXPECT_TRUE(IsWindow(app.main_dialog));

  test_seams.messages.clear();
  const std::string path = folder.File("after.rdf");
  CloneImage read{};
  ASSERT_TRUE(WriteRadioDataFile(app.document.image, path));
  EXPECT_TRUE(ReadRadioDataFile(read, path));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{});
  // The reader clears the filler.
  EXPECT_TRUE(std::equal(read.begin() + 100, read.end(), app.document.image.begin() + 100));
}

}  // namespace
}  // namespace qz7
