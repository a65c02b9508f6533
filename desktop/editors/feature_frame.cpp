#include "desktop/editors/feature_frame.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "desktop/toolkit/help.h"
#include "desktop/toolkit/picture_list.h"
#include "desktop/toolkit/radio_font.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct FeatureDialog {
  const FeatureWindow& window;
  const FeatureEditor& editor;
  std::vector<SettingField> fields;
  Font radio_font;
  PictureList pictures;
  bool filling = false;  // the fields: their notifications are not the user's
};

FeatureDialog& DialogOf(HWND dialog) { return StateOf<FeatureDialog>(dialog); }

void ShowFields(HWND dialog, SettingsSource source) {
  FeatureDialog& state = DialogOf(dialog);
  state.filling = true;
  for (const SettingField& field : state.fields) {
    ShowInField(dialog, field, LoadSetting(*field.row, source));
  }
  if (state.window.on_shown) {
    state.window.on_shown(dialog);
  }
  state.filling = false;
}

std::vector<SettingValue> ReadFields(HWND dialog) {
  std::vector<SettingValue> values;
  for (const SettingField& field : DialogOf(dialog).fields) {
    values.push_back(ValueInField(dialog, field));
  }
  return values;
}

// The focus goes to the field that was refused.
bool Accepted(HWND dialog, std::optional<std::size_t> refused) {
  if (refused) {
    MoveFocus(dialog, DialogOf(dialog).fields[*refused].control.number);
  }
  return !refused;
}

void SetUpFieldOf(const FeatureDialog& state, HWND dialog, const SettingField& field) {
  SetUpField(dialog, field);
  if (field.control.radio_font) {
    UseFont(dialog, field.control.number, state.radio_font);
  }
  if (field.row->kind == SettingKind::kPictureList) {
    state.pictures.Fit(dialog, field.control.number);
  }
}

BOOL OnInit(HWND dialog, LPARAM parameter) {
  SetUpDialog(dialog, parameter);
  FeatureDialog& state = DialogOf(dialog);
  AddTooltips(dialog, PlaceTooltips(state.fields));
  state.radio_font = CreateRadioFont(dialog, kListFontHeight);
  for (const SettingField& field : state.fields) {
    SetUpFieldOf(state, dialog, field);
  }
  const FeatureEditor& editor = state.editor;
  ShowFields(dialog, OpeningSource(editor.image, editor.defaults, editor.starts_from_defaults));
  if (editor.starts_from_defaults) {
    ShowWindow(GetDlgItem(dialog, ID_DEFAULTS_NOTE), SW_SHOW);
    DisableDefaultsButtons(dialog, IDOK);
  }
  return TRUE;
}

void OnUseDefaults(HWND dialog) {
  ShowFields(dialog, SourceIn(DialogOf(dialog).editor.defaults));
  DisableDefaultsButtons(dialog, IDOK);
}

void OnStoreDefaults(HWND dialog) {
  const FeatureDialog& state = DialogOf(dialog);
  const FeatureEditor& editor = state.editor;
  const auto save = [&editor] { SaveDefaultsRecord(editor.defaults, editor.defaults_file); };
  const auto values = ReadFields(dialog);
  if (Accepted(dialog, StoreDefaults(state.window.screen, values, editor.defaults, save))) {
    DisableDefaultsButtons(dialog, IDOK);
  }
}

void OnOk(HWND dialog) {
  const FeatureDialog& state = DialogOf(dialog);
  const auto values = ReadFields(dialog);
  if (Accepted(dialog, StoreScreen(state.window.screen, values, TargetIn(state.editor.image)))) {
    EndDialog(dialog, 0);
  }
}

void OnValueControl(HWND dialog, int control, int notification) {
  FeatureDialog& state = DialogOf(dialog);
  if (state.filling) {
    return;
  }
  if (state.window.on_command) {
    state.filling = true;
    state.window.on_command(dialog, control);
    state.filling = false;
  }
  if (std::any_of(state.fields.begin(), state.fields.end(), [=](const SettingField& field) {
        return field.control.enables_defaults && TellsChange(field, control, notification);
      })) {
    EnableDefaultsButtons(dialog);
  }
}

void OnCommand(HWND dialog, int control, int notification) {
  switch (control) {
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    case ID_HELP:
      ShowHelp(DialogOf(dialog).window.help_context);
      break;
    case ID_USE_DEFAULTS:
      OnUseDefaults(dialog);
      break;
    case ID_STORE_DEFAULTS:
      OnStoreDefaults(dialog);
      break;
    default:
      OnValueControl(dialog, control, notification);
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcFeature(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_DRAWITEM) {
    DialogOf(dialog).pictures.Draw(DrawnItem(l));
    return TRUE;
  }
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

bool ShowFeatureWindow(const FeatureWindow& window, const FeatureEditor& editor) {
  FeatureDialog state{.window = window,
                      .editor = editor,
                      .fields = FieldsOf(window.screen, window.controls),
                      .radio_font = nullptr,
                      .pictures = PictureList(window.pictures)};
  return RunDialog(window.dialog_template, DlgProcFeature, &state) == 0;
}

}  // namespace qz7
