#include "desktop/program.h"

#include "core/files/paths.h"
#include "core/files/seams.h"
#include "desktop/app_state.h"
#include "desktop/command_line.h"
#include "desktop/font_file.h"
#include "desktop/locations.h"
#include "desktop/main_dialog.h"
#include "desktop/main_window.h"
#include "desktop/message_loop.h"
#include "desktop/named_file.h"
#include "desktop/start_up.h"
#include "desktop/toolkit/dialog_support.h"

namespace qz7 {

AppState app;

namespace {

constexpr int kFailed = -1;

bool RaiseRunningProgram() {
  const HWND running = FindWindowA(kMainWindowClass, nullptr);
  if (running == nullptr) {
    return false;
  }
  BringToFront(running);
  return true;
}

int Fail(const char* text) {
  ShowMessage(text, "Error", Buttons::kOk, Icon::kNone);
  return kFailed;
}

bool LoadResourceLibrary() {
  dialog_modules.library = LoadLibraryExW(SystemPath(BesideProgram("qz732.dll")).c_str(), nullptr,
                                          LOAD_WITH_ALTERED_SEARCH_PATH);
  if (dialog_modules.library != nullptr) {
    return true;
  }
  // The number is the same whatever the cause.
  ShowMessage("An error occured while trying to load the resources\nError no. 32", "Error",
              Buttons::kOk, Icon::kStop);
  return false;
}

std::optional<NamedFile> FileOfCommandLine(std::wstring_view command_line) {
  const auto word = CommandLineName(ArgumentsOf(command_line));
  return word ? std::optional(FileOfWord(*word)) : std::nullopt;
}

}  // namespace

int RunProgram(HINSTANCE instance, std::wstring_view command_line, int show_state) {
  // Libraries come from the program's own folder, never from the current one.
  SetDllDirectoryA("");
  dialog_modules.program = instance;
  if (RaiseRunningProgram()) {
    return kFailed;
  }
  dialog_modules.help_path = BesideProgram("qz7.hlp");
  app.defaults_file = FindDefaultsFile();
  app.port = MakeSerialPort();
  LoadPreferences(app.document.preferences, ProgramFolder());
  if (!RegisterMainWindow()) {
    return Fail("Cannot register window class");
  }
  if (CreateMainWindow() == nullptr) {
    return Fail("Cannot create window");
  }
  if (!LoadResourceLibrary()) {
    return 0;
  }
  if (CreateMainDialog(app.main_window) == nullptr) {
    return Fail("Cannot create dialog");
  }
  ShowWindow(app.main_dialog, SW_SHOW);
  ShowWindow(app.main_window, show_state);
  StartDocument(app.document, *app.port, FileOfCommandLine(command_line), app.defaults_file);
  InstallFontSoon();
  RefreshStatusLine();
  RunMessageLoop();
  app.port->Close();
  RemoveFontFile();
  UnloadResourceLibrary();
  return 0;
}

}  // namespace qz7
