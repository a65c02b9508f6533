#include "desktop/editors/feature_support_dialog.h"

#include <bit>

#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

void OnCommand(const FeatureCommands& commands, HWND dialog, int control, int notification) {
  switch (control) {
    case IDOK:
      commands.ok(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    case ID_HELP:
      ShowHelp(commands.help_context);
      break;
    case ID_USE_DEFAULTS:
      commands.show_defaults(dialog);
      EnableDefaultsButtons(dialog, false);
      break;
    case ID_STORE_DEFAULTS:
      commands.store_defaults(dialog);
      break;
    default:
      commands.value(dialog, control, notification);
      break;
  }
}

}  // namespace

SettingsSource OpeningSource(const FeatureEditor& editor) {
  return OpeningSource(editor.image, editor.defaults, editor.starts_from_defaults);
}

void EnableDefaultsButtons(HWND dialog, bool enabled) {
  const HWND use = GetDlgItem(dialog, ID_USE_DEFAULTS);
  const HWND store = GetDlgItem(dialog, ID_STORE_DEFAULTS);
  // A disabled button would keep the keyboard to itself.
  if (!enabled && (GetFocus() == use || GetFocus() == store)) {
    const HWND ok = GetDlgItem(dialog, IDOK);
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(ok), TRUE);
  }
  EnableWindow(use, enabled);
  EnableWindow(store, enabled);
}

bool DefaultsButtonsEnabled(HWND dialog) {
  return IsWindowEnabled(GetDlgItem(dialog, ID_STORE_DEFAULTS)) != FALSE;
}

void SaveDefaults(const FeatureEditor& editor) {
  SaveDefaultsRecord(editor.defaults, editor.defaults_file);
}

INT_PTR HandleFeatureMessage(const FeatureCommands& commands, HWND dialog, UINT message, WPARAM w) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(commands, dialog, LOWORD(w), HIWORD(w));
      return TRUE;
    case WM_CLOSE:
      EndDialog(dialog, -1);
      return TRUE;
    default:
      return FALSE;
  }
}

std::string BytePlace(std::size_t offset) { return "Byte " + std::to_string(offset); }

std::string BitPlace(std::size_t offset, std::uint8_t bit) {
  return BytePlace(offset) + ", bit " + std::to_string(std::countr_zero(bit));
}

void FillList(HWND dialog, int control, std::span<const std::string> texts) {
  for (const std::string& text : texts) {
    SendDlgItemMessageA(dialog, control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
}

void ShowInList(HWND dialog, int control, std::optional<int> choice) {
  SelectInList(dialog, control, choice.value_or(-1));
}

std::optional<int> ChosenInList(HWND dialog, int control) {
  const int position = SelectedInList(dialog, control);
  return position >= 0 ? std::optional(position) : std::nullopt;
}

void ShowInGroup(HWND dialog, int first_button, int buttons, std::optional<int> choice) {
  for (int i = 0; i < buttons; ++i) {
    CheckDlgButton(dialog, first_button + i, choice == i ? BST_CHECKED : BST_UNCHECKED);
  }
}

std::optional<int> ChosenInGroup(HWND dialog, int first_button, int buttons) {
  for (int i = 0; i < buttons; ++i) {
    if (IsDlgButtonChecked(dialog, first_button + i) == BST_CHECKED) {
      return i;
    }
  }
  return std::nullopt;
}

void ShowInPair(HWND dialog, int first_button, std::optional<bool> second_choice) {
  ShowInGroup(dialog, first_button, 2,
              second_choice ? std::optional(*second_choice ? 1 : 0) : std::nullopt);
}

std::optional<bool> ChosenInPair(HWND dialog, int first_button) {
  const std::optional<int> choice = ChosenInGroup(dialog, first_button, 2);
  return choice ? std::optional(*choice == 1) : std::nullopt;
}

}  // namespace qz7
