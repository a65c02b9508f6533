#include "desktop/files/preferences_dialog.h"

#include <windows.h>

#include <array>

#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct PreferenceBox {
  int control;
  bool Preferences::*flag;
};
constexpr std::array<PreferenceBox, 8> kBoxes = {{
    {ID_MAIN_DEFAULTS_NEW, &Preferences::use_main_defaults_new},
    {ID_DIAL_DEFAULTS, &Preferences::use_dial_defaults},
    {ID_SETTING_DEFAULTS, &Preferences::use_setting_defaults},
    {ID_VORN_DEFAULTS, &Preferences::use_vorn_defaults},
    {ID_MAIN_DEFAULTS_OPEN, &Preferences::use_main_defaults_open},
    {ID_DONT_ASK_DEFAULTS, &Preferences::use_dont_ask_defaults},
    {ID_WX_NAMES_DEFAULTS, &Preferences::use_wx_names_defaults},
    {ID_ICON_DEFAULTS, &Preferences::use_icon_defaults},
}};

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  const auto& preferences = StateOf<const Preferences>(dialog);
  for (const PreferenceBox& box : kBoxes) {
    Check(dialog, box.control, preferences.*box.flag);
  }
  // The WX names box shows the icon flag and the icon box opens clear, on purpose: OK then stores
  // what is seen.
  Check(dialog, ID_WX_NAMES_DEFAULTS, preferences.use_icon_defaults);
  Check(dialog, ID_ICON_DEFAULTS, false);
  return TRUE;
}

void OnOk(HWND dialog) {
  auto& preferences = StateOf<Preferences>(dialog);
  for (const PreferenceBox& box : kBoxes) {
    preferences.*box.flag = IsChecked(dialog, box.control);
  }
  SavePreferenceFlags(preferences);
  EndDialog(dialog, 0);
}

void OnCommand(HWND dialog, int control, int /*notification*/) {
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

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcDefaults(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  // Closing the window is told apart from Cancel, which ends with 0.
  if (message == WM_CLOSE) {
    EndDialog(dialog, -1);
    return TRUE;
  }
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

void ShowPreferencesDialog(Preferences& preferences) {
  RunDialog("DLLDlgDefaults", DlgProcDefaults, &preferences);
}

}  // namespace qz7
