// bare_program: shows the main window's template from the program's resource library and nothing
// else: the least that a program with this window takes to start.
#include <windows.h>

namespace {

INT_PTR CALLBACK IgnoreMessage(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

HWND MakeFrame(HINSTANCE program) {
  WNDCLASSA kind{};
  kind.lpfnWndProc = DefWindowProcA;
  kind.hInstance = program;
  kind.lpszClassName = "BareProgram";
  RegisterClassA(&kind);
  return CreateWindowExA(0, kind.lpszClassName, "Bare program", WS_OVERLAPPED | WS_CAPTION,
                         CW_USEDEFAULT, 0, 0, 0, nullptr, nullptr, program, nullptr);
}

void FitAround(HWND frame, HWND dialog) {
  RECT size;
  GetClientRect(dialog, &size);
  AdjustWindowRect(&size, WS_OVERLAPPED | WS_CAPTION, FALSE);
  SetWindowPos(frame, nullptr, 0, 0, size.right - size.left, size.bottom - size.top,
               SWP_NOMOVE | SWP_NOZORDER);
}

}  // namespace

int WINAPI WinMain(HINSTANCE program, HINSTANCE /*previous*/, LPSTR /*command_line*/,
                   int show_state) {
  const HMODULE library = LoadLibraryA("qz732.dll");
  const HWND frame = MakeFrame(program);
  const HWND dialog = CreateDialogParamA(library, "DLLDlgMain", frame, IgnoreMessage, 0);
  if (dialog == nullptr) {
    return 1;
  }
  FitAround(frame, dialog);
  ShowWindow(dialog, SW_SHOW);
  ShowWindow(frame, show_state);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    if (!IsDialogMessageA(dialog, &message)) {
      DispatchMessageA(&message);
    }
  }
  return 0;
}
