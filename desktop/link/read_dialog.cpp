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

void OnCommand(HWND dialog, int control, int /*notification*/) {
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
  if (HandleExchangeMessage(dialog, message, w, l)) {
    return TRUE;
  }
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

bool ShowReadDialog(CloneRead& read, SerialPort& port) {
  ExchangeWindow window{.port = port,
                        .exchange = read,
                        .tick = [&] { TickCloneRead(read, port); },
                        .notify = [&] { NotifyCloneRead(read, port); },
                        .answer = [&](Answer answer) { AnswerCloneRead(read, port, answer); },
                        .awaited = [&] { return AwaitedBy(read); },
                        .invited = [&] { return InvitedBy(read); },
                        .remedy = [&] { return RemedyFor(read); }};
  return RunExchangeDialog("DLLDlgReadRadio", DlgProcReadRadio, window) == 0;
}

}  // namespace qz7
