#include "desktop/main_window.h"

// Behind <windows.h>.
#include <shellapi.h>

#include <filesystem>
#include <memory>
#include <vector>

#include "core/files/seams.h"
#include "core/files/unexpected.h"
#include "desktop/app_state.h"
#include "desktop/command_table.h"
#include "desktop/commands.h"
#include "desktop/font_file.h"
#include "desktop/main_dialog.h"
#include "desktop/status_line.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "desktop/toolkit/system_library.h"

namespace qz7 {
namespace {

// As Exit asks; true to go on.
bool MayEnd() {
  bool may_end = false;
  RunWhole(app.document, [&] { may_end = AskSaveChanges(app.document); });
  return may_end;
}

void OnClose(HWND window) {
  if (!MayEnd()) {
    return;
  }
  QuitHelp();
  UnloadResourceLibrary();
  DestroyWindow(window);
}

void OnDestroy() {
  UnloadResourceLibrary();
  PostQuitMessage(0);
}

// The paths of a drop, which goes back to the system.
std::vector<std::filesystem::path> TakeFiles(HDROP drop) {
  constexpr const char* kShell = "shell32.dll";
  const auto ask = SystemFunction<decltype(&DragQueryFileW)>(kShell, "DragQueryFileW");
  constexpr UINT kAll = 0xFFFFFFFF;
  std::vector<std::filesystem::path> files(ask(drop, kAll, nullptr, 0));
  for (UINT n = 0; n < files.size(); ++n) {
    std::wstring path(ask(drop, n, nullptr, 0), L'\0');
    ask(drop, n, path.data(), static_cast<UINT>(path.size()) + 1);
    files[n] = path;
  }
  SystemFunction<decltype(&DragFinish)>(kShell, "DragFinish")(drop);
  return files;
}

// A drop that was on its way when a dialog opened comes too late.
void OnDrop(HWND window, HDROP drop) {
  const std::vector<std::filesystem::path> files = TakeFiles(drop);
  if (IsWindowEnabled(window) && !files.empty()) {
    // Whoever the files come from has the keyboard; the questions about them are asked here.
    SetForegroundWindow(window);
    RunDrop(files);
  }
}

constexpr UINT kShowStatus = WM_APP + 1;
constexpr UINT kInstallFont = WM_APP + 2;

void ShowStatus() {
  try {
    auto shown = std::make_unique<CloneImage>(app.document.image);
    ReadMainControls(*shown);
    ShowStatusText(StatusText(app.document, *shown, *app.port, app.note));
  } catch (...) {
    // What it says stays behind until the next time.
    return;
  }
}

// The control of the main dialog that had the keyboard when the main window lost it.
HWND focused_control = nullptr;

void KeepFocus() {
  const HWND focus = GetFocus();
  if (IsChild(app.main_dialog, focus)) {
    focused_control = focus;
  }
}

void GiveFocusBack() {
  SetFocus(IsChild(app.main_dialog, focused_control)
               ? focused_control
               : GetNextDlgTabItem(app.main_dialog, nullptr, FALSE));
}

LRESULT HandleMainMessage(HWND window, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_COMMAND:
      return RunCommand(LOWORD(w)) ? 0 : DefWindowProcA(window, message, w, l);
    case WM_DROPFILES:
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the handle as a number
      OnDrop(window, reinterpret_cast<HDROP>(w));
      return 0;
    case kShowStatus:
      ShowStatus();
      return 0;
    case kInstallFont:
      InstallFontFile();
      return 0;
    case WM_CLOSE:
      OnClose(window);
      return 0;
    case WM_QUERYENDSESSION:
      return MayEnd() ? TRUE : FALSE;
    case WM_DESTROY:
      OnDestroy();
      return 0;
    // The last message before a dialog disables this window, which takes the keyboard from it.
    case WM_CANCELMODE:
    case WM_ACTIVATE:
      KeepFocus();
      return DefWindowProcA(window, message, w, l);
    case WM_SETFOCUS:
      GiveFocusBack();
      return 0;
    case WM_HELP:
      ShowHelpContents();
      return TRUE;
    case WM_PAINT:
      ValidateRect(window, nullptr);
      return 0;
    default:
      return DefWindowProcA(window, message, w, l);
  }
}

LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM w, LPARAM l) {
  try {
    return HandleMainMessage(window, message, w, l);
  } catch (...) {
    ShowUnexpected();
    return 0;
  }
}

BOOL CALLBACK TakeUsable(HWND window, LPARAM found) {
  if (!IsWindowVisible(window) || !IsWindowEnabled(window) ||
      GetWindow(window, GW_OWNER) == nullptr) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// The window of a program in which the user goes on: its last active pop-up, or the main window
// where none is open.
HWND WindowInUse(HWND main_window) {
  HWND window = GetLastActivePopup(main_window);
  if (!IsWindowEnabled(window)) {
    EnumThreadWindows(GetWindowThreadProcessId(main_window, nullptr), TakeUsable,
                      reinterpret_cast<LPARAM>(&window));
  }
  return window;
}

}  // namespace

// With no small icon of its own a class gets one scaled down from the large one.
bool RegisterMainWindow() {
  WNDCLASSEXA window_class{};
  window_class.cbSize = sizeof window_class;
  window_class.style = CS_HREDRAW | CS_VREDRAW;
  window_class.lpfnWndProc = MainWindowProc;
  window_class.hInstance = dialog_modules.program;
  window_class.hIcon = LoadIconA(dialog_modules.program, "Icon");
  window_class.hIconSm = static_cast<HICON>(LoadImageA(dialog_modules.program, "Icon", IMAGE_ICON,
                                                       GetSystemMetrics(SM_CXSMICON),
                                                       GetSystemMetrics(SM_CYSMICON), LR_SHARED));
  window_class.hCursor = LoadCursor(nullptr, IDC_ARROW);
  window_class.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  window_class.lpszMenuName = "MainMenu";
  window_class.lpszClassName = kMainWindowClass;
  return RegisterClassExA(&window_class) != 0;
}

HWND CreateMainWindow() {
  app.main_window =
      CreateWindowExA(WS_EX_ACCEPTFILES, kMainWindowClass, kProgramTitle,
                      WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN,
                      CW_USEDEFAULT, 0, 0, 0, nullptr, nullptr, dialog_modules.program, nullptr);
  dialog_modules.main_window = app.main_window;
  return app.main_window;
}

void InstallFontSoon() { PostMessageA(app.main_window, kInstallFont, 0, 0); }

void RefreshStatusLine() { PostMessageA(app.main_window, kShowStatus, 0, 0); }

void BringToFront(HWND main_window) {
  if (IsIconic(main_window)) {
    ShowWindow(main_window, IsWindowEnabled(main_window) ? SW_RESTORE : SW_SHOWNOACTIVATE);
  }
  SetForegroundWindow(WindowInUse(main_window));
}

void UnloadResourceLibrary() {
  if (dialog_modules.library != nullptr) {
    FreeLibrary(dialog_modules.library);
    dialog_modules.library = nullptr;
  }
}

}  // namespace qz7
