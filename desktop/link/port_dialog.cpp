#include "desktop/link/port_dialog.h"

#include <windows.h>

#include <string>

#include "core/files/seams.h"
#include "core/link/port_setup.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  for (int index = 0; index <= kHighestPort; ++index) {
    const std::string name = index == 0 ? "None" : PortName(index);
    SendDlgItemMessageA(dialog, ID_PORT, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
  }
  SelectInList(dialog, ID_PORT, StateOf<int>(dialog));
  return TRUE;
}

void OnOk(HWND dialog) {
  const int chosen = ChosenInList(dialog, ID_PORT).value_or(-1);
  if (chosen < 0 || chosen > kHighestPort) {
    ShowMessage("Invalid Port", "", Buttons::kOk, Icon::kNone);
    return;
  }
  EndDialog(dialog, chosen);
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcSetupPort(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_COMMAND:
      if (LOWORD(w) == IDOK) {
        OnOk(dialog);
      } else if (LOWORD(w) == IDCANCEL) {
        EndDialog(dialog, -1);
      }
      return TRUE;
    // There is no Help button that the key could press.
    case WM_HELP:
      ShowHelp(kHelpPortSetup);
      return TRUE;
    default:
      return FALSE;
  }
}

std::optional<int> ShowPortDialog(int index) {
  int state = index;
  const INT_PTR chosen = RunDialog("DlgProcSetupPort", DlgProcSetupPort, &state);
  return chosen < 0 ? std::nullopt : std::optional(static_cast<int>(chosen));
}

}  // namespace qz7
