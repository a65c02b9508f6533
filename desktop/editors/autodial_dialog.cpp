#include <vector>

#include "core/editors/autodial.h"
#include "core/image/settings_map.h"
#include "desktop/editors/feature_support_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct AutodialDialog {
  const FeatureEditor& editor;
  DtmfDisplay& display;
};

AutodialDialog& DialogStateOf(HWND dialog) { return StateOf<AutodialDialog>(dialog); }

AutodialControls ReadControls(HWND dialog) {
  AutodialControls controls;
  for (int n = 0; n < kAutodialCount; ++n) {
    controls.numbers[static_cast<std::size_t>(n)] = ControlText(dialog, ID_AUTODIAL_FIRST + n);
  }
  controls.flag = IsDlgButtonChecked(dialog, ID_AUTODIAL_FLAG) == BST_CHECKED;
  return controls;
}

void ShowNumbers(HWND dialog, const AutodialControls& controls) {
  for (int n = 0; n < kAutodialCount; ++n) {
    SetDlgItemTextA(dialog, ID_AUTODIAL_FIRST + n,
                    controls.numbers[static_cast<std::size_t>(n)].c_str());
  }
}

void ShowControls(HWND dialog, const AutodialControls& controls) {
  ShowNumbers(dialog, controls);
  CheckDlgButton(dialog, ID_AUTODIAL_FLAG, controls.flag ? BST_CHECKED : BST_UNCHECKED);
}

// Stores what the controls hold; the focus goes to a number that is refused.
bool StoreControls(HWND dialog, SettingsTarget target) {
  const std::optional<int> refused = StoreAutodial(ReadControls(dialog), target);
  if (refused) {
    const HWND field = GetDlgItem(dialog, ID_AUTODIAL_FIRST + *refused);
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(field), TRUE);
  }
  return !refused;
}

std::vector<Tooltip> PlaceTooltips() {
  return {{ID_AUTODIAL_FLAG, BitPlace(kSwitchesA, kAutodialBit)}};
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state, PlaceTooltips());
  for (int n = 0; n < kAutodialCount; ++n) {
    LimitText(dialog, ID_AUTODIAL_FIRST + n, kAutodialTextLength);
  }
  const auto& [editor, display] = DialogStateOf(dialog);
  CheckDlgButton(dialog, ID_DTMF_SYMBOLS,
                 display == DtmfDisplay::kSymbols ? BST_CHECKED : BST_UNCHECKED);
  ShowControls(dialog, LoadAutodial(OpeningSource(editor), display));
  EnableDefaultsButtons(dialog, !editor.starts_from_defaults);
  return TRUE;
}

void OnShowDefaults(HWND dialog) {
  const auto& [editor, display] = DialogStateOf(dialog);
  ShowControls(dialog, LoadAutodial(SourceIn(editor.defaults), display));
}

void OnStoreDefaults(HWND dialog) {
  const FeatureEditor& editor = DialogStateOf(dialog).editor;
  if (StoreControls(dialog, TargetIn(editor.defaults))) {
    EnableDefaultsButtons(dialog, false);
    SaveDefaults(editor);
  }
}

void OnOk(HWND dialog) {
  if (StoreControls(dialog, TargetIn(DialogStateOf(dialog).editor.image))) {
    EndDialog(dialog, 0);
  }
}

// The numbers stay what they are, so that the defaults buttons stay as they are too.
void OnDisplay(HWND dialog) {
  DtmfDisplay& display = DialogStateOf(dialog).display;
  display = IsDlgButtonChecked(dialog, ID_DTMF_SYMBOLS) == BST_CHECKED ? DtmfDisplay::kSymbols
                                                                       : DtmfDisplay::kLetters;
  const bool enabled = DefaultsButtonsEnabled(dialog);
  AutodialControls controls = ReadControls(dialog);
  ShowNumbersAs(controls, display);
  ShowNumbers(dialog, controls);
  EnableDefaultsButtons(dialog, enabled);
}

void OnValueControl(HWND dialog, int control, int notification) {
  if (control == ID_DTMF_SYMBOLS) {
    OnDisplay(dialog);
    return;
  }
  const int change = control == ID_AUTODIAL_FLAG ? BN_CLICKED : EN_CHANGE;
  if (notification == change) {
    EnableDefaultsButtons(dialog, true);
  }
}

constexpr FeatureCommands kCommands{.help_context = kHelpAutodial,
                                    .show_defaults = OnShowDefaults,
                                    .store_defaults = OnStoreDefaults,
                                    .ok = OnOk,
                                    .value = OnValueControl};

INT_PTR CALLBACK DlgProcAutoDial(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    default:
      return HandleFeatureMessage(kCommands, dialog, message, w);
  }
}

}  // namespace

bool ShowAutodialDialog(const FeatureEditor& editor, DtmfDisplay& display) {
  AutodialDialog state{.editor = editor, .display = display};
  return RunDialog("DLLDlgAutoDial", DlgProcAutoDial, &state) == 0;
}

}  // namespace qz7
