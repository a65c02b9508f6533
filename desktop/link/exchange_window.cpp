#include "desktop/link/exchange_window.h"

#include "core/files/seams.h"
#include "desktop/link/meter_painting.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr UINT_PTR kTimer = 1;
// How often a port is looked at that does not tell when bytes have come: a byte's time.
constexpr DWORD kLookMilliseconds = 1;

// The timer runs while the exchange does. A port that has gone away is not asked again: the dialog
// waits for Cancel.
void FollowTimer(ExchangeWindow& window) {
  const bool wanted = IsRunning(window.exchange, window.port);
  if (wanted && !window.timer_runs) {
    window.clock.Restart();
    SetTimer(window.dialog, kTimer, kTickMilliseconds, nullptr);
  } else if (!wanted) {
    KillTimer(window.dialog, kTimer);
  }
  window.timer_runs = wanted;
  window.clock.Follow(window.exchange);
}

void FollowMeter(ExchangeWindow& window) {
  const HWND meter = GetDlgItem(window.dialog, ID_METER);
  RECT client;
  GetClientRect(meter, &client);
  const MeterBar bar =
      MeterBarOf(window.exchange.meter.percent, InsideMeterFrame(static_cast<int>(client.right)));
  if (bar != window.shown_bar) {
    window.shown_bar = bar;
    InvalidateRect(meter, nullptr, FALSE);
  }
}

// What has been waited for too long stands below the meter until it comes.
void FollowSilence(ExchangeWindow& window) {
  const bool runs = IsRunning(window.exchange, window.port);
  const std::string note = window.silence.Note(window.exchange, runs ? window.awaited() : "");
  if (note != window.shown_note) {
    window.shown_note = note;
    SetDlgItemTextA(window.dialog, ID_AWAITED, note.c_str());
  }
}

// How far it is, or what the user can do. While a box asks, nothing is told beside it.
void FollowTransfer(ExchangeWindow& window) {
  const Exchange& exchange = window.exchange;
  const auto seconds_left = window.pace.SecondsLeft(exchange.meter);
  if (exchange.question || exchange.ended) {
    return;
  }
  const bool stands = !window.shown_note.empty() || !IsRunning(exchange, window.port);
  std::string text = window.port.IsLost() ? "" : window.invited();
  if (text.empty()) {
    text = stands ? window.remedy() : TransferText(exchange.meter, seconds_left);
  }
  if (text != window.shown_transfer) {
    window.shown_transfer = text;
    SetDlgItemTextA(window.dialog, ID_TRANSFER, text.c_str());
  }
}

void FollowExchange(ExchangeWindow& window) {
  FollowTimer(window);
  FollowSilence(window);
  FollowTransfer(window);
  FollowMeter(window);
  if (window.show) {
    window.show(window.dialog);
  }
}

// The box of a failed read belongs to no window, so that the dialog behind it can be cancelled.
Answer Ask(const LinkQuestion& question) {
  if (question.error == LinkError::kFailedRead) {
    ShowBoxWithoutOwner(question.text, question.caption);
    return Answer::kOk;
  }
  return ShowMessage(question.text, question.caption, question.buttons, Icon::kNone);
}

// While the box of a question is open its own loop brings ticks, for which the exchange does not
// run.
void RunStep(ExchangeWindow& window, const std::function<void()>& step) {
  if (!IsRunning(window.exchange, window.port)) {
    return;
  }
  BeginTurn(window.exchange);
  ChangeExchange(window, step);
  while (window.exchange.question) {
    const Answer answer = Ask(*window.exchange.question);
    window.clock.Restart();
    BeginTurn(window.exchange);
    ChangeExchange(window, [&] { window.answer(answer); });
  }
}

// What has come is read before the time that has passed is counted: the system's timer may be
// coarser than a tick, and a busy machine later still.
void OnTimer(ExchangeWindow& window) {
  RunStep(window, window.notify);
  for (int due = window.clock.Due(); due > 0; --due) {
    RunStep(window, window.tick);
  }
}

// False when the program is to end.
bool PumpMessages(HWND dialog) {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return false;
    }
    if (!IsDialogMessageA(dialog, &message)) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
  }
  return true;
}

void RunLoop(ExchangeWindow& window) {
  while (!window.exchange.ended) {
    HANDLE event = window.port.ArmReceiveEvent();
    const DWORD events = event != nullptr ? 1 : 0;
    const bool looks = events == 0 && IsRunning(window.exchange, window.port);
    const DWORD woken = MsgWaitForMultipleObjects(
        events, &event, FALSE, looks ? kLookMilliseconds : INFINITE, QS_ALLINPUT);
    if (woken == WAIT_TIMEOUT || (events == 1 && woken == WAIT_OBJECT_0)) {
      RunStep(window, window.notify);
    }
    if (!PumpMessages(window.dialog)) {
      return;
    }
  }
}

}  // namespace

int RunExchangeDialog(const char* template_name, DLGPROC procedure, ExchangeWindow& window) {
  const HWND owner = DialogOwner();
  const HWND dialog = CreateModelessDialog(template_name, owner, procedure, &window);
  if (dialog == nullptr) {
    return -1;
  }
  DisabledOwner modal(owner);
  modal.dialog = dialog;
  ShowWindow(dialog, SW_SHOW);
  RunLoop(window);
  KillTimer(dialog, kTimer);
  if (window.failure) {
    std::rethrow_exception(window.failure);
  }
  return window.exchange.ended.value_or(-1);
}

void BeginExchangeDialog(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  auto& window = StateOf<ExchangeWindow>(dialog);
  window.dialog = dialog;
  FollowExchange(window);
}

bool HandleExchangeMessage(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_TIMER && w == kTimer) {
    auto& window = StateOf<ExchangeWindow>(dialog);
    OnTimer(window);
    return true;
  }
  if (message == WM_DRAWITEM && w == ID_METER) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the pointer as a number
    PaintMeter(*reinterpret_cast<const DRAWITEMSTRUCT*>(l),
               StateOf<ExchangeWindow>(dialog).exchange.meter);
    return true;
  }
  return false;
}

void ChangeExchange(ExchangeWindow& window, const std::function<void()>& change) {
  try {
    change();
  } catch (...) {
    // A step that was left half-way cannot be gone on with.
    EndExchange(window.exchange, -1);
    window.failure = std::current_exception();
  }
  FollowExchange(window);
}

}  // namespace qz7
