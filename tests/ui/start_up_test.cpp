#include <string_view>

#include "core/files/paths.h"
#include "desktop/locations.h"
#include "desktop/main_window.h"
#include "desktop/program.h"
#include "tests/ui/window_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

bool no_window = false;
bool no_dialog = false;

HWND WINAPI CreateWindowUnlessTold(DWORD extended, LPCSTR class_name, LPCSTR title, DWORD style,
                                   int x, int y, int width, int height, HWND parent, HMENU menu,
                                   HINSTANCE instance, LPVOID parameter) {
  static const auto create = reinterpret_cast<decltype(&CreateWindowExA)>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("user32"), "CreateWindowExA")));
  return no_window ? nullptr
                   : create(extended, class_name, title, style, x, y, width, height, parent, menu,
                            instance, parameter);
}

HWND WINAPI CreateDialogUnlessTold(HINSTANCE instance, LPCSTR name, HWND parent, DLGPROC procedure,
                                   LPARAM parameter) {
  static const auto create = reinterpret_cast<decltype(&CreateDialogParamA)>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("user32"), "CreateDialogParamA")));
  return no_dialog ? nullptr : create(instance, name, parent, procedure, parameter);
}

}  // namespace

// They take the place of the system's functions in this program.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names
HWND(WINAPI* __imp_CreateWindowExA)
(DWORD, LPCSTR, LPCSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE,
 LPVOID) = CreateWindowUnlessTold;
HWND(WINAPI* __imp_CreateDialogParamA)
(HINSTANCE, LPCSTR, HWND, DLGPROC, LPARAM) = CreateDialogUnlessTold;
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
}

namespace {

// The whole program, which ends as soon as it comes to its message loop.
class StartUpOfTheProgram : public testing::Test {
 protected:
  StartUpOfTheProgram() {
    std::filesystem::current_path(folder.path());
    test_seams.profile = {{"DataDir", folder.path().string()}, {"TemplateFile", "Z:\\none.tpl"}};
    app.document = Document{};
    UnregisterClassA(kMainWindowClass, dialog_modules.program);
  }
  ~StartUpOfTheProgram() override {
    no_window = no_dialog = false;
    DestroyWindow(app.main_window);
    app.main_window = dialog_modules.main_window = nullptr;
    UnloadResourceLibrary();
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
      DispatchMessageA(&message);
    }
    UnregisterClassA(kMainWindowClass, dialog_modules.program);
    EXPECT_TRUE(RegisterMainWindow());
    std::filesystem::current_path(before_);
  }

  static int Run() {
    PostQuitMessage(0);
    return RunProgram(dialog_modules.program, L"qz7.exe", SW_SHOWNORMAL);
  }
  static void ExpectFailure(const char* text) {
    EXPECT_EQ(Run(), -1);
    ASSERT_EQ(ShownTexts(), std::vector<std::string>{text});
    EXPECT_EQ(test_seams.messages[0].caption, "Error");
    EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
  }

  TempFolder folder;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_F(StartUpOfTheProgram, SaysThatTheWindowClassCannotBeRegistered) {
  ASSERT_TRUE(RegisterMainWindow());
  ExpectFailure("Cannot register window class");
}

TEST_F(StartUpOfTheProgram, SaysThatTheWindowCannotBeCreated) {
  no_window = true;
  ExpectFailure("Cannot create window");
}

TEST_F(StartUpOfTheProgram, SaysThatTheMainDialogCannotBeCreated) {
  no_dialog = true;
  ExpectFailure("Cannot create dialog");
}

TEST_F(StartUpOfTheProgram, EndsSilentlyWhereItRunsAlready) {
  ASSERT_TRUE(RegisterMainWindow());
  const HWND first = CreateMainWindow();
  EXPECT_EQ(Run(), -1);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(app.main_window, first);
}

TEST_F(StartUpOfTheProgram, MakesTheNewDocumentBeforeItLoadsTheDefaults) {
  PutFile(folder.File("qz7.def"), Bytes(799, 3));
  test_seams.profile["UseMainDefaultsNew"] = "1";
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(app.document.image[10240], 0);
  EXPECT_EQ(app.document.defaults[622], 3);
  EXPECT_EQ(app.document.defaults[798], 3);
}

TEST_F(StartUpOfTheProgram, FillsTheDefaultsFromTheNewDocumentWithoutAFile) {
  EXPECT_EQ(Run(), 0);
  DefaultsRecord expected{};
  FillDefaultsRecord(expected, app.document.image);
  EXPECT_EQ(app.document.defaults, expected);
}

// Counts the font-change notices that reach a window of another program, as it were.
int notices = 0;

LRESULT CALLBACK CountNotices(HWND window, UINT message, WPARAM w, LPARAM l) {
  notices += message == WM_FONTCHANGE ? 1 : 0;
  return DefWindowProcA(window, message, w, l);
}

int NoticesTo(HWND window) {
  MSG message;
  while (PeekMessageA(&message, window, WM_FONTCHANGE, WM_FONTCHANGE, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // It comes whatever is looked for, and it is the program's.
      PostQuitMessage(0);
      break;
    }
    DispatchMessageA(&message);
  }
  return notices;
}

TEST_F(StartUpOfTheProgram, AddsTheFontAfterTheAdviceAndTellsAllWindowsThenAndAtTheEnd) {
  const HWND window = CreateWindowExA(0, "STATIC", "another window", WS_OVERLAPPED, 0, 0, 10, 10,
                                      nullptr, nullptr, nullptr, nullptr);
  SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountNotices));
  NoticesTo(window);
  notices = 0;
  test_seams.profile["TemplateFile"] = "";
  int before_advice = -1;
  test_seams.answer = [&](Buttons) {
    before_advice = NoticesTo(window);
    return Answer::kOk;
  };
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(before_advice, 0);
  EXPECT_EQ(NoticesTo(window), 2);
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_TRUE(test_seams.messages[0].text.starts_with("One of the first things"));
  DestroyWindow(window);
}

TEST(ProfilePlace, IsTheSystemsFolderWhereThatCanBeWritten) {
  const TempFolder folder;
  EXPECT_EQ(ChooseProfilePath(folder.path(), "U:\\user").native(),
            InFolder(folder.path(), "Tamro.ini").native());
}

TEST(ProfilePlace, IsTheUsersFolderWhereTheSystemsCannotBeWritten) {
  const TempFolder folder;
  const auto chosen = [&] { return ChooseProfilePath(folder.path() / "none", folder.path()); };
  EXPECT_EQ(chosen().native(), InFolder(folder.path(), "Tamro.ini").native());
  PutFile(folder.File("none"), {});
  EXPECT_EQ(chosen().native(), InFolder(folder.path(), "Tamro.ini").native());
}

TEST(ProfilePlace, IsTheSystemsFolderWhereTheUserHasNone) {
  EXPECT_EQ(ChooseProfilePath("U:\\none", "").native(),
            std::filesystem::path("U:\\none\\Tamro.ini").native());
}

}  // namespace
}  // namespace qz7
