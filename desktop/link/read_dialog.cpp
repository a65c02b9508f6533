#include <windows.h>

#include "desktop/link/clone_dialogs.h"
#include "desktop/link/exchange_window.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

BOOL OnInit(HWND dialog, LPARAM state) {
  BeginExchangeDialog(dialog, state);
  SetFocus(GetDlgItem(dialog, IDCANCEL));
  return FALSE;
}

void OnCommand(HWND dialog, int control) {
  auto& window = StateOf<ExchangeWindow>(dialog);
  switch (control) {
    case IDCANCEL:
      ChangeExchange(window, [&] { EndExchange(window.exchange, -1); });
      break;
    case ID_HELP:
      ShowHelp(kHelpGetData);
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcReadRadio(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_COMMAND:
      OnCommand(dialog, LOWORD(w));
      return TRUE;
    case WM_CLOSE:
      OnCommand(dialog, IDCANCEL);
      return TRUE;
    default:
      return HandleExchangeMessage(dialog, message, w, l) ? TRUE : FALSE;
  }
}

bool ShowReadDialog(CloneRead& read, SerialPort& port) {
  ExchangeWindow window{.port = port,
                        .exchange = read,
                        .tick = [&] { TickCloneRead(read, port); },
                        .notify = [&] { NotifyCloneRead(read, port); },
                        .answer = [&](Answer answer) { AnswerCloneRead(read, port, answer); }};
  return RunExchangeDialog("DLLDlgReadRadio", DlgProcReadRadio, window) == 0;
}

}  // namespace qz7
