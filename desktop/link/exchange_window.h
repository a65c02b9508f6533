#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <string>

#include "core/link/exchange.h"
#include "core/link/serial_port.h"
#include "core/link/silence.h"
#include "core/link/tick_clock.h"
#include "core/link/transfer_note.h"
#include "desktop/link/meter_bar.h"

namespace qz7 {

// Drives an exchange in its dialog, without a second thread: by the dialog's timer, and by the
// port's receive event, which the dialog's own message loop waits for beside the messages.
struct ExchangeWindow {
  SerialPort& port;
  Exchange& exchange;
  std::function<void()> tick;            // one tick of the timer
  std::function<void()> notify;          // bytes have come
  std::function<void(Answer)> answer;    // of the question that a step has left
  std::function<std::string()> awaited;  // what the exchange waits for at present
  std::function<std::string()> invited;  // what the user is to do before anything moves
  std::function<std::string()> remedy;   // what the user can do when it stands still
  std::function<void(HWND)> show = {};   // shows what the exchange allows now
  HWND dialog = nullptr;
  bool timer_runs = false;
  TickClock clock = {};
  Silence silence = {};
  std::string shown_note = {};
  TransferPace pace = {};
  std::string shown_transfer = {};
  MeterBar shown_bar = {};
  std::exception_ptr failure = {};  // what ended the exchange in the middle of a step
};

// Defined by the program: a box with OK that belongs to no window.
void ShowBoxWithoutOwner(const std::string& text, const std::string& caption);

// Shows the dialog until the exchange has ended; 0 for success. The dialog's messages go through
// HandleExchangeMessage first. What a step throws comes out of here, once the dialog is gone.
int RunExchangeDialog(const char* template_name, DLGPROC procedure, ExchangeWindow& window);

// In WM_INITDIALOG: the common set-up; from now on the exchange runs.
void BeginExchangeDialog(HWND dialog, LPARAM state);
// The timer and the meter; false for another message.
bool HandleExchangeMessage(HWND dialog, UINT message, WPARAM w, LPARAM l);
// Runs something that changes the exchange, and lets the dialog follow.
void ChangeExchange(ExchangeWindow& window, const std::function<void()>& change);

}  // namespace qz7
