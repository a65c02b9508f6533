#include "desktop/files/preferences_dialog.h"

#include <windows.h>

#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  const auto& preferences = StateOf<const Preferences>(dialog);
  for (const PreferenceFlag& flag : kPreferenceFlags) {
    CheckDlgButton(dialog, flag.box, ShowsChecked(preferences, flag) ? BST_CHECKED : BST_UNCHECKED);
  }
  return TRUE;
}

void OnOk(HWND dialog) {
  auto& preferences = StateOf<Preferences>(dialog);
  for (const PreferenceFlag& flag : kPreferenceFlags) {
    preferences.*flag.flag = IsDlgButtonChecked(dialog, flag.box) == BST_CHECKED;
  }
  SavePreferenceFlags(preferences);
  EndDialog(dialog, 0);
}

void OnCommand(HWND dialog, int control) {
  switch (control) {
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, 0);
      break;
    case ID_HELP:
      ShowHelp(kHelpPreferences);
      break;
    default:
      break;
  }
}

INT_PTR CALLBACK DlgProcDefaults(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_COMMAND:
      OnCommand(dialog, LOWORD(w));
      return TRUE;
    case WM_CLOSE:
      EndDialog(dialog, -1);
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

void ShowPreferencesDialog(Preferences& preferences) {
  RunDialog("DLLDlgDefaults", DlgProcDefaults, &preferences);
}

}  // namespace qz7
