#include "core/editors/wx_names.h"
#include "desktop/editors/feature_support_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "desktop/toolkit/radio_font.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct WxNamesDialog {
  const FeatureEditor& editor;
  Font font;
  WxNames names;  // what the fields hold
};

WxNamesDialog& DialogStateOf(HWND dialog) { return StateOf<WxNamesDialog>(dialog); }

void ShowNames(HWND dialog, const WxNames& names) {
  for (int n = 0; n < kWxNameCount; ++n) {
    SetDlgItemTextA(dialog, ID_WX_NAME_FIRST + n, names.names[static_cast<std::size_t>(n)].c_str());
  }
  // Nobody has edited these yet, whatever the fields have notified.
  DialogStateOf(dialog).names = names;
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  auto& [editor, font, names] = DialogStateOf(dialog);
  font = CreateRadioFont(dialog, kListFontHeight);
  for (int n = 0; n < kWxNameCount; ++n) {
    UseFont(dialog, ID_WX_NAME_FIRST + n, font);
    LimitText(dialog, ID_WX_NAME_FIRST + n, kWxNameLength);
  }
  ShowNames(dialog, LoadWxNames(OpeningSource(editor)));
  EnableDefaultsButtons(dialog, !editor.starts_from_defaults);
  return TRUE;
}

void OnShowDefaults(HWND dialog) {
  ShowNames(dialog, LoadWxNames(SourceIn(DialogStateOf(dialog).editor.defaults)));
}

void OnStoreDefaults(HWND dialog) {
  const WxNamesDialog& state = DialogStateOf(dialog);
  SaveWxNamesAsDefaults(state.names, state.editor.defaults,
                        [&state] { SaveDefaults(state.editor); });
  EnableDefaultsButtons(dialog, false);
}

void OnOk(HWND dialog) {
  const auto& [editor, font, names] = DialogStateOf(dialog);
  StoreWxNames(names, TargetIn(editor.image));
  EndDialog(dialog, 0);
}

void OnNameField(HWND dialog, int control, int notification) {
  if (notification == EN_CHANGE) {
    EditWxName(DialogStateOf(dialog).names, control - ID_WX_NAME_FIRST,
               ControlText(dialog, control));
    EnableDefaultsButtons(dialog, true);
  }
}

constexpr FeatureCommands kCommands{.help_context = kHelpWxNames,
                                    .show_defaults = OnShowDefaults,
                                    .store_defaults = OnStoreDefaults,
                                    .ok = OnOk,
                                    .value = OnNameField};

INT_PTR CALLBACK DlgProcWxNames(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    default:
      return HandleFeatureMessage(kCommands, dialog, message, w);
  }
}

}  // namespace

bool ShowWxNamesDialog(const FeatureEditor& editor) {
  WxNamesDialog state{.editor = editor, .font = nullptr, .names = {}};
  return RunDialog("DLLDlgWXNames", DlgProcWxNames, &state) == 0;
}

}  // namespace qz7
