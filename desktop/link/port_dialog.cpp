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

// A cable may have been plugged in since, so that each choice is looked up anew.
void ShowNote(HWND dialog) {
  const std::string note = PortNote(ChosenInList(dialog, ID_PORT).value_or(0), ListSerialPorts());
  const int size = static_cast<int>(note.size());
  std::wstring text(note.size(), L'\0');
  text.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, note.data(), size, text.data(), size)));
  SetDlgItemTextW(dialog, ID_PORT_NOTE, text.c_str());
}

std::string PortChoice(int index) { return index == 0 ? "None" : PortName(index); }

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  FillList(dialog, ID_PORT, kHighestPort + 1, PortChoice);
  SelectInList(dialog, ID_PORT, StateOf<int>(dialog));
  ShowNote(dialog);
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

void OnCommand(HWND dialog, int control, int notification) {
  switch (control) {
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    case ID_PORT:
      if (notification == CBN_SELCHANGE) {
        ShowNote(dialog);
      }
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcSetupPort(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_COMMAND:
      OnCommand(dialog, LOWORD(w), HIWORD(w));
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
