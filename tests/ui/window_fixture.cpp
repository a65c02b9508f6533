#include "tests/ui/window_fixture.h"

#include <deque>
#include <fstream>

#include "desktop/locations.h"
#include "desktop/main_dialog.h"
#include "desktop/main_window.h"
#include "desktop/toolkit/dialog_support.h"

namespace qz7 {
namespace {

class Program : public testing::Environment {
  void SetUp() override {
    dialog_modules.program = GetModuleHandleA(nullptr);
    dialog_modules.help_path = BesideProgram("qz7.hlp");
    ASSERT_TRUE(RegisterMainWindow());
    ASSERT_NE(AddFontResourceW(BesideProgram("qz7.fon").c_str()), 0);
  }
};

[[maybe_unused]] const testing::Environment* const kProgram =
    testing::AddGlobalTestEnvironment(new Program);

constexpr int kLongestWait = 20'000;
constexpr UINT kLookInterval = 5;

std::deque<std::function<void(HWND)>> scripts;
UINT_PTR script_timer = 0;
ULONGLONG script_deadline = 0;
HWND last_dialog = nullptr;  // had its script

int beeps = 0;

BOOL WINAPI CountBeep(UINT) {
  ++beeps;
  return TRUE;
}

void CALLBACK RunScript(HWND, UINT, UINT_PTR, DWORD) {
  const HWND dialog = DialogOwner();
  const bool open = dialog != nullptr && dialog != app.main_window && IsWindowVisible(dialog);
  if (GetTickCount64() > script_deadline) {
    ADD_FAILURE() << (open ? "the dialog stays open" : "no dialog has come");
    PostMessageA(dialog, WM_CLOSE, 0, 0);
    script_deadline = GetTickCount64() + kLongestWait;
  } else if (open && dialog != last_dialog && !scripts.empty()) {
    last_dialog = dialog;
    const auto script = scripts.front();
    scripts.pop_front();
    UpdateWindow(dialog);
    script(dialog);
  }
}

}  // namespace

// Takes the place of the system's function in this program.
extern "C" {
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the linker's name
BOOL(WINAPI* __imp_MessageBeep)(UINT) = CountBeep;
}

int Beeps() { return beeps; }

WindowTest::WindowTest() {
  beeps = 0;
  dialog_modules.library = LoadLibraryW(BesideProgram("qz732.dll").c_str());
  EXPECT_NE(dialog_modules.library, nullptr);
  app.document = Document{};
  app.note.clear();
  app.document.preferences.data_folder = folder.path().string();
  app.defaults_file = {.path = folder.File("qz7.def"), .fallback_path = ""};
  UsePort<MemoryLine>();
  EXPECT_NE(CreateMainWindow(), nullptr);
  EXPECT_NE(CreateMainDialog(app.main_window), nullptr);
  ShowWindow(app.main_dialog, SW_SHOW);
  ShowWindow(app.main_window, SW_SHOW);
  NewDocument(app.document);
  RefreshStatusLine();
  HandleMessages();
}

WindowTest::~WindowTest() {
  DestroyWindow(app.main_window);
  app.main_window = nullptr;
  dialog_modules.main_window = nullptr;
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    DispatchMessageA(&message);
  }
}

DialogScript::DialogScript(std::function<void(HWND)> script) {
  scripts.push_back(std::move(script));
  if (script_timer == 0) {
    script_timer = SetTimer(nullptr, 0, kLookInterval, RunScript);
  }
  script_deadline = GetTickCount64() + kLongestWait;
  last_dialog = nullptr;
}

DialogScript::~DialogScript() {
  EXPECT_TRUE(scripts.empty()) << "a dialog has not come";
  scripts.clear();
  KillTimer(nullptr, script_timer);
  script_timer = 0;
}

void Press(HWND dialog, int control) { SendMessageA(GetDlgItem(dialog, control), BM_CLICK, 0, 0); }

void Choose(HWND dialog, int list, int position) {
  SelectInList(dialog, list, position);
  SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, list)));
}

void Type(HWND dialog, int field, const std::string& text) {
  const HWND window = GetDlgItem(dialog, field);
  SendMessageA(window, EM_SETSEL, 0, -1);
  SendMessageA(window, WM_CLEAR, 0, 0);
  for (const char c : text) {
    SendMessageA(window, WM_CHAR, static_cast<unsigned char>(c), 0);
  }
}

void PressKey(HWND dialog, int key) {
  MSG message{};
  message.hwnd = GetFocus();
  message.message = WM_KEYDOWN;
  message.wParam = static_cast<WPARAM>(key);
  IsDialogMessageA(dialog, &message);
  HandleMessages();
}

void PutPlainText(const std::string& text) {
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
  std::copy_n(text.c_str(), text.size() + 1, static_cast<char*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  SetClipboardData(CF_TEXT, memory);
  CloseClipboard();
}

bool IsEnabled(HWND dialog, int control) {
  return IsWindowEnabled(GetDlgItem(dialog, control)) != FALSE;
}

std::string TextOf(HWND dialog, int control) { return ControlText(dialog, control); }

void HandleMessages() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

bool HandleMessagesUntil(const std::function<bool()>& condition, int milliseconds) {
  const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
  while (!condition()) {
    if (GetTickCount64() > deadline) {
      return false;
    }
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    HandleMessages();
  }
  return true;
}

void SavePicture(HWND window, const std::string& name) {
  RedrawWindow(window, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  RECT area;
  GetWindowRect(window, &area);
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* pixels = nullptr;
  const HDC source = GetWindowDC(window);
  const HDC memory = CreateCompatibleDC(source);
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  const HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
  GdiFlush();
  const auto size = static_cast<DWORD>(width * height * 4);
  const DWORD headers = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
  BITMAPFILEHEADER header{};
  header.bfType = 0x4D42;
  header.bfSize = headers + size;
  header.bfOffBits = headers;
  CreateDirectoryW(BesideProgram("screenshots").c_str(), nullptr);
  std::ofstream file(BesideProgram("screenshots") / (name + ".bmp"), std::ios::binary);
  file.write(reinterpret_cast<const char*>(&header), sizeof header);
  file.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof info.bmiHeader);
  file.write(static_cast<const char*>(pixels), size);
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(window, source);
}

}  // namespace qz7
