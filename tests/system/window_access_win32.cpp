#include "tests/system/window_access_win32.h"

#include <array>
#include <cstdlib>

namespace {

constexpr UINT kLongestAnswer = 10'000;

BOOL CALLBACK TakeWindow(HWND window, LPARAM list) {
  if (IsWindowVisible(window)) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  }
  return TRUE;
}

}  // namespace

std::string NumberOf(HWND window) { return std::to_string(reinterpret_cast<ULONG_PTR>(window)); }

LONG_PTR Number(const std::string& text) {
  char* end = nullptr;
  const LONG_PTR number = std::strtoll(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0') {
    throw Refused("not a number: " + text);
  }
  return number;
}

HWND WindowOf(const std::string& text) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a handle is a number between two programs
  const HWND window = reinterpret_cast<HWND>(Number(text));
  if (!IsWindow(window)) {
    throw Refused("no such window: " + text);
  }
  return window;
}

LRESULT Ask(HWND window, UINT message, WPARAM w, LPARAM l) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(window, message, w, l, SMTO_NORMAL, kLongestAnswer, &result) == 0) {
    throw Refused("the window does not answer");
  }
  return static_cast<LRESULT>(result);
}

void Post(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (!PostMessageW(window, message, w, l)) {
    throw Refused("the window takes no message");
  }
}

std::string Utf8(std::wstring_view text) {
  const auto size = static_cast<int>(text.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

std::wstring Wide(std::string_view text) {
  const auto size = static_cast<int>(text.size());
  const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring letters(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, letters.data(), needed);
  return letters;
}

std::string ClassOf(HWND window) {
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return Utf8(name.data());
}

std::string TitleOf(HWND window) {
  std::array<wchar_t, 1024> title{};
  GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
  return Utf8(title.data());
}

std::string TextOf(HWND control) {
  std::wstring text(static_cast<std::size_t>(Ask(control, WM_GETTEXTLENGTH)) + 1, L'\0');
  const LRESULT size = Ask(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(size));
  return Utf8(text);
}

std::vector<HWND> VisibleWindows() {
  std::vector<HWND> windows;
  EnumWindows(TakeWindow, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::vector<HWND> VisibleControls(HWND window) {
  std::vector<HWND> controls;
  EnumChildWindows(window, TakeWindow, reinterpret_cast<LPARAM>(&controls));
  return controls;
}

HWND ControlOf(const std::string& window, const std::string& identifier,
               const std::string& class_name) {
  const LONG_PTR wanted = Number(identifier);
  for (const HWND control : VisibleControls(WindowOf(window))) {
    if (GetDlgCtrlID(control) == wanted && (class_name.empty() || ClassOf(control) == class_name)) {
      return control;
    }
  }
  throw Refused("no such control: " + class_name + " " + identifier);
}

HWND UsableControlOf(const std::string& window, const std::string& identifier,
                     const std::string& class_name) {
  const HWND control = ControlOf(window, identifier, class_name);
  if (!IsWindowEnabled(control) || !IsWindowEnabled(WindowOf(window))) {
    throw Refused("disabled: " + identifier);
  }
  return control;
}
