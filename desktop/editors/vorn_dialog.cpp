#include <vector>

#include "core/editors/vorn.h"
#include "core/image/settings_map.h"
#include "desktop/editors/feature_support_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "desktop/toolkit/radio_font.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr int kModes = 3;

struct VornDialog {
  const FeatureEditor& editor;
  Font font;
};

const FeatureEditor& EditorOf(HWND dialog) { return StateOf<VornDialog>(dialog).editor; }

std::vector<Tooltip> PlaceTooltips() {
  return {{ID_VORN_MODE_FIRST, BytePlace(kVornMode)},
          {ID_VORN_MODE_SECOND, BytePlace(kVornMode)},
          {ID_VORN_MODE_THIRD, BytePlace(kVornMode)},
          {ID_VORN_SWITCH_FIRST, BitPlace(kSwitchesC, kVornBit)},
          {ID_VORN_SWITCH_SECOND, BitPlace(kSwitchesC, kVornBit)},
          {ID_VORN_FLAG, BytePlace(kVornFlag)},
          {ID_VORN_IDENTIFIER, BytePlace(kVornIdentifier.offset)}};
}

VornControls ReadControls(HWND dialog) {
  return {.mode = ChosenInGroup(dialog, ID_VORN_MODE_FIRST, kModes),
          .second_choice = ChosenInPair(dialog, ID_VORN_SWITCH_FIRST),
          .flag = IsDlgButtonChecked(dialog, ID_VORN_FLAG) == BST_CHECKED,
          .identifier = ControlText(dialog, ID_VORN_IDENTIFIER)};
}

void ShowControls(HWND dialog, const VornControls& controls) {
  ShowInGroup(dialog, ID_VORN_MODE_FIRST, kModes, controls.mode);
  ShowInPair(dialog, ID_VORN_SWITCH_FIRST, controls.second_choice);
  CheckDlgButton(dialog, ID_VORN_FLAG, controls.flag ? BST_CHECKED : BST_UNCHECKED);
  SetDlgItemTextA(dialog, ID_VORN_IDENTIFIER, controls.identifier.c_str());
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state, PlaceTooltips());
  LimitText(dialog, ID_VORN_IDENTIFIER, kIdentifierLength);
  Font& font = StateOf<VornDialog>(dialog).font;
  font = CreateRadioFont(dialog, kListFontHeight);
  UseFont(dialog, ID_VORN_IDENTIFIER, font);
  const FeatureEditor& editor = EditorOf(dialog);
  ShowControls(dialog, LoadVorn(OpeningSource(editor)));
  EnableDefaultsButtons(dialog, !editor.starts_from_defaults);
  return TRUE;
}

void OnShowDefaults(HWND dialog) {
  ShowControls(dialog, LoadVorn(SourceIn(EditorOf(dialog).defaults)));
}

void OnStoreDefaults(HWND dialog) {
  const FeatureEditor& editor = EditorOf(dialog);
  StoreVorn(ReadControls(dialog), TargetIn(editor.defaults));
  EnableDefaultsButtons(dialog, false);
  SaveDefaults(editor);
}

void OnOk(HWND dialog) {
  StoreVorn(ReadControls(dialog), TargetIn(EditorOf(dialog).image));
  EndDialog(dialog, 0);
}

void OnValueControl(HWND dialog, int control, int notification) {
  const int change = control == ID_VORN_IDENTIFIER ? EN_CHANGE : BN_CLICKED;
  if (notification == change) {
    EnableDefaultsButtons(dialog, true);
  }
}

constexpr FeatureCommands kCommands{.help_context = kHelpVorn,
                                    .show_defaults = OnShowDefaults,
                                    .store_defaults = OnStoreDefaults,
                                    .ok = OnOk,
                                    .value = OnValueControl};

INT_PTR CALLBACK DlgProcVORN(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    default:
      return HandleFeatureMessage(kCommands, dialog, message, w);
  }
}

}  // namespace

bool ShowVornDialog(const FeatureEditor& editor) {
  VornDialog state{.editor = editor, .font = nullptr};
  return RunDialog("DLLDlgVorn", DlgProcVORN, &state) == 0;
}

}  // namespace qz7
