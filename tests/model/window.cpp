#include "tests/model/window.h"

#include <algorithm>
#include <deque>
#include <optional>

#include "desktop/link/meter_painting.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "tests/model/world.h"

using namespace qz7::model;

namespace {

// USER's own timers are never shorter.
constexpr UINT kShortestTimer = 10;

struct Timer {
  HWND window;
  UINT_PTR number;
  UINT milliseconds;
  Time due;
};

struct Desktop {
  std::deque<MSG> messages;
  std::vector<Timer> timers;
  ModelWindow main_window;
  std::unique_ptr<ModelWindow> dialog;
};
Desktop desktop;

bool IsDue(const Timer& timer) { return timer.due <= TheWorld().now; }

bool HasInput() {
  return !desktop.messages.empty() ||
         std::any_of(desktop.timers.begin(), desktop.timers.end(), IsDue);
}

// Behind all other messages comes that of a timer, once for however long it was due.
std::optional<MSG> TakeMessage() {
  if (!desktop.messages.empty()) {
    const MSG message = desktop.messages.front();
    desktop.messages.pop_front();
    return message;
  }
  const auto timer = std::find_if(desktop.timers.begin(), desktop.timers.end(), IsDue);
  if (timer == desktop.timers.end()) {
    return std::nullopt;
  }
  timer->due = TheWorld().EndOf(timer->milliseconds);
  return MSG{timer->window, WM_TIMER, timer->number, 0};
}

// Time goes on until there is input or an object is signalled. A timer's step is an action of the
// machine, so that waiting ends there.
bool WaitForInputUntil(Time limit, const std::function<bool()>& condition) {
  World& world = TheWorld();
  Time next = limit;
  for (const Timer& timer : desktop.timers) {
    next = std::min(next, timer.due);
  }
  return world.PassUntil(next, condition);
}

}  // namespace

namespace qz7::model {

void StartDesktop() {
  desktop.messages.clear();
  desktop.timers.clear();
  desktop.dialog.reset();
  desktop.main_window.enabled = true;
}

HWND OpenDialog() { return desktop.dialog.get(); }

std::size_t RunningTimers() { return desktop.timers.size(); }

void HandleMessagesFor(int milliseconds) {
  const Time end = TheWorld().now + milliseconds * kMillisecond;
  while (TheWorld().now < end) {
    WaitForInputUntil(end, HasInput);
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
      DispatchMessageA(&message);
    }
  }
}

}  // namespace qz7::model

DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE* objects, BOOL /*all*/,
                                DWORD milliseconds, DWORD /*what*/) {
  EnterCall();
  World& world = TheWorld();
  const auto is_signalled = [&] { return count > 0 && ObjectOf<Object>(objects[0])->signalled; };
  const Time limit = milliseconds == INFINITE ? kForever : world.EndOf(milliseconds);
  const auto is_woken = [&] { return is_signalled() || HasInput(); };
  while (!is_woken() && world.now < limit) {
    WaitForInputUntil(limit, is_woken);
  }
  world.Pass(kWakeTime);
  if (is_signalled()) {
    return WAIT_OBJECT_0;
  }
  return HasInput() ? WAIT_OBJECT_0 + count : WAIT_TIMEOUT;
}

BOOL PeekMessageA(MSG* message, HWND /*window*/, UINT /*first*/, UINT /*last*/, UINT /*remove*/) {
  EnterCall();
  const auto taken = TakeMessage();
  if (taken) {
    *message = *taken;
  }
  return taken.has_value();
}

BOOL PostMessageA(HWND window, UINT message, WPARAM w, LPARAM l) {
  desktop.messages.push_back({window, message, w, l});
  return TRUE;
}

void PostQuitMessage(int code) {
  desktop.messages.push_back({nullptr, WM_QUIT, static_cast<WPARAM>(code), 0});
}

BOOL IsDialogMessageA(HWND /*dialog*/, MSG* message) {
  DispatchMessageA(message);
  return TRUE;
}

BOOL TranslateMessage(const MSG* /*message*/) { return FALSE; }

LRESULT DispatchMessageA(const MSG* message) {
  return message->hwnd != nullptr && message->hwnd->procedure != nullptr
             ? message->hwnd->procedure(message->hwnd, message->message, message->wParam,
                                        message->lParam)
             : 0;
}

UINT_PTR SetTimer(HWND window, UINT_PTR timer, UINT milliseconds, void* /*procedure*/) {
  EnterCall();
  KillTimer(window, timer);
  const UINT period = std::max(milliseconds, kShortestTimer);
  desktop.timers.push_back({window, timer, period, TheWorld().EndOf(period)});
  return timer;
}

BOOL KillTimer(HWND window, UINT_PTR timer) {
  return std::erase_if(desktop.timers, [&](const Timer& running) {
           return running.window == window && running.number == timer;
         }) > 0;
}

HWND GetDlgItem(HWND dialog, int control) {
  auto& window = dialog->controls[control];
  if (!window) {
    window = std::make_unique<ModelWindow>();
  }
  return window.get();
}

BOOL SetDlgItemTextA(HWND dialog, int control, LPCSTR text) {
  GetDlgItem(dialog, control)->text = text;
  return TRUE;
}

BOOL GetClientRect(HWND /*window*/, RECT* area) {
  *area = {0, 0, 300, 20};
  return TRUE;
}

BOOL InvalidateRect(HWND /*window*/, const RECT* /*area*/, BOOL /*erase*/) { return TRUE; }

BOOL EnableWindow(HWND window, BOOL enabled) {
  window->enabled = enabled != FALSE;
  return TRUE;
}

BOOL IsWindowEnabled(HWND window) { return window->enabled; }

BOOL ShowWindow(HWND /*window*/, int /*state*/) { return TRUE; }

HWND SetFocus(HWND window) { return window; }

BOOL DestroyWindow(HWND window) {
  EnterCall();
  if (window != desktop.dialog.get()) {
    return Fail(ERROR_INVALID_HANDLE);
  }
  std::erase_if(desktop.timers, [&](const Timer& timer) { return timer.window == window; });
  std::erase_if(desktop.messages, [&](const MSG& message) { return message.hwnd == window; });
  desktop.dialog.reset();
  return TRUE;
}

BOOL EndDialog(HWND /*dialog*/, INT_PTR /*result*/) { return TRUE; }

LONG_PTR GetWindowLongPtrA(HWND window, int /*index*/) { return window->state; }

// The part of the windows' toolkit that an exchange's window needs.
namespace qz7 {

HWND DialogOwner() { return &desktop.main_window; }

HWND CreateModelessDialog(const char* /*template_name*/, HWND /*parent*/, DLGPROC procedure,
                          void* state) {
  desktop.dialog = std::make_unique<ModelWindow>();
  desktop.dialog->procedure = procedure;
  procedure(desktop.dialog.get(), WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(state));
  return desktop.dialog.get();
}

INT_PTR RunDialog(const char* /*template_name*/, DLGPROC /*procedure*/, void* /*state*/) {
  return 0;
}

void SetUpDialog(HWND dialog, LPARAM state, std::span<const Tooltip> /*tooltips*/) {
  dialog->state = state;
}

INT_PTR HandleDialogMessage(const DialogActions& actions, HWND dialog, UINT message, WPARAM w,
                            LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return actions.init(dialog, l);
    case WM_COMMAND:
      actions.command(dialog, LOWORD(w), HIWORD(w));
      return TRUE;
    default:
      return FALSE;
  }
}

void PaintMeter(const DRAWITEMSTRUCT& /*item*/, const ProgressMeter& /*meter*/) {}

void ShowHelp(int /*context*/) {}

}  // namespace qz7
