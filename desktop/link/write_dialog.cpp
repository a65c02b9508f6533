#include <windows.h>

#include "core/files/seams.h"
#include "desktop/link/clone_dialogs.h"
#include "desktop/link/exchange_window.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct WriteWindow : ExchangeWindow {
  CloneWrite& write;
  Preferences& preferences;
};

WriteWindow& WindowOf(HWND dialog) {
  return static_cast<WriteWindow&>(StateOf<ExchangeWindow>(dialog));
}

void ShowTemplateName(HWND dialog, const Preferences& preferences) {
  SetDlgItemTextA(dialog, ID_TEMPLATE_NAME, TemplateDisplayName(preferences.template_path).c_str());
}

void BrowseTemplate(Preferences& preferences) {
  const auto file =
      ShowOpenBox({.title = "Select Radio Template File",
                   .filters = {{"Template Files (*.tpl)", "*.tpl"}, {"All files (*.*)", "*.*"}},
                   .default_extension = "tpl",
                   .folder = preferences.data_folder,
                   .initial_name = ""});
  if (file) {
    preferences.template_path = file->path;
    SaveTemplatePath(preferences);
  }
}

// The buttons that start are disabled while the exchange runs, and after an error that only Cancel
// follows.
void ShowStartButtons(HWND dialog, bool enabled) {
  const HWND start = GetDlgItem(dialog, IDOK);
  if ((IsWindowEnabled(start) != FALSE) == enabled) {
    return;
  }
  EnableWindow(start, enabled);
  EnableWindow(GetDlgItem(dialog, ID_BROWSE_TEMPLATE), enabled);
  // Not to Cancel: a second Enter would stop the transfer. From the meter it finds OK, disabled.
  SetFocus(GetDlgItem(dialog, enabled ? IDOK : ID_METER));
}

BOOL OnInit(HWND dialog, LPARAM state) {
  BeginExchangeDialog(dialog, state);
  ShowTemplateName(dialog, WindowOf(dialog).preferences);
  SetFocus(GetDlgItem(dialog, IDOK));
  return FALSE;
}

void OnCommand(HWND dialog, int control, int /*notification*/) {
  auto& window = WindowOf(dialog);
  switch (control) {
    case IDOK:
      ChangeExchange(window, [&] {
        StartCloneWrite(window.write, window.port, window.preferences.template_path);
      });
      break;
    case IDCANCEL:
      ChangeExchange(window, [&] { CancelCloneWrite(window.write); });
      break;
    case ID_BROWSE_TEMPLATE:
      BrowseTemplate(window.preferences);
      ShowTemplateName(dialog, window.preferences);
      break;
    case ID_HELP:
      ShowHelp(kHelpSendData);
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcWriteRadio(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  if (HandleExchangeMessage(dialog, message, w, l)) {
    return TRUE;
  }
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

extern "C" INT_PTR CALLBACK DlgProcWriteRadioDone(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      SetUpDialog(dialog, l);
      return TRUE;
    case WM_COMMAND:
      if (LOWORD(w) == ID_HELP) {
        ShowHelp(kHelpDataSent);
      } else if (LOWORD(w) == IDOK || LOWORD(w) == IDCANCEL) {
        EndDialog(dialog, 0);
      }
      return TRUE;
    default:
      return FALSE;
  }
}

bool ShowWriteDialog(CloneWrite& write, SerialPort& port, Preferences& preferences) {
  WriteWindow window{{.port = port,
                      .exchange = write,
                      .tick = [&] { TickCloneWrite(write, port); },
                      .notify = [&] { NotifyCloneWrite(write, port); },
                      .answer = [&](Answer answer) { AnswerCloneWrite(write, port, answer); },
                      .awaited = [&] { return AwaitedBy(write); },
                      .invited = [&] { return InvitedBy(write); },
                      .remedy = [&] { return RemedyFor(write); },
                      .show = [&](HWND dialog) { ShowStartButtons(dialog, write.can_start); }},
                     write,
                     preferences};
  if (RunExchangeDialog("DLLDlgWriteRadio", DlgProcWriteRadio, window) != 0) {
    return false;
  }
  RunDialog("DLLDlgWriteRadioDone", DlgProcWriteRadioDone, nullptr);
  return true;
}

}  // namespace qz7
