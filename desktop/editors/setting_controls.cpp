#include "desktop/editors/setting_controls.h"

#include "desktop/toolkit/edited_field.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

int ButtonsOf(const Setting& row) {
  return row.kind == SettingKind::kRadioGroup ? row.choices.count : 1;
}

void EnableButtons(HWND dialog, bool enabled) {
  for (const int button : {ID_USE_DEFAULTS, ID_STORE_DEFAULTS}) {
    EnableWindow(GetDlgItem(dialog, button), enabled);
  }
}

// Only the buttons that change. One that clears the others itself looks for them among all of the
// dialog's controls each time that it is checked: it is none of these while it is.
void CheckOneOf(HWND dialog, int first, int count, std::optional<int> chosen) {
  for (int i = 0; i < count; ++i) {
    const HWND button = GetDlgItem(dialog, first + i);
    const LRESULT wanted = i == chosen ? BST_CHECKED : BST_UNCHECKED;
    if (SendMessageA(button, BM_GETCHECK, 0, 0) != wanted) {
      SendMessageA(button, BM_SETSTYLE, BS_RADIOBUTTON, FALSE);
      SendMessageA(button, BM_SETCHECK, static_cast<WPARAM>(wanted), 0);
      SendMessageA(button, BM_SETSTYLE, BS_AUTORADIOBUTTON, FALSE);
    }
  }
}

}  // namespace

SettingControls NumberedControls(const std::string& name, int count, SettingControl first) {
  SettingControls controls;
  for (int i = 1; i <= count; ++i) {
    controls.emplace(name + "-" + std::to_string(i), first);
    ++first.number;
  }
  return controls;
}

std::vector<SettingField> FieldsOf(const SettingScreen& screen, const SettingControls& controls) {
  std::vector<SettingField> fields;
  fields.reserve(screen.rows.size());
  for (const Setting& row : screen.rows) {
    fields.push_back({&row, controls.at(row.name)});
  }
  return fields;
}

void SetUpField(HWND dialog, const SettingField& field) {
  const auto& [row, control] = field;
  switch (row->kind) {
    case SettingKind::kText:
      LimitText(dialog, control.number, row->text.longest);
      if (control.pastes_whole) {
        RefuseLongPastes(GetDlgItem(dialog, control.number));
      }
      break;
    case SettingKind::kList:
    case SettingKind::kPictureList:
      // Of a list of pictures the texts are not seen; they let a letter choose its entry.
      FillList(dialog, control.number, row->choices.count, row->choices.text);
      break;
    default:
      break;
  }
}

void ShowInField(HWND dialog, const SettingField& field, const SettingValue& value) {
  const auto& [row, control] = field;
  switch (row->kind) {
    case SettingKind::kText:
      SetDlgItemTextA(dialog, control.number, value.text.c_str());
      break;
    case SettingKind::kCheckBox:
      Check(dialog, control.number, value.choice == 1);
      break;
    case SettingKind::kRadioGroup:
      CheckOneOf(dialog, control.number, ButtonsOf(*row), value.choice);
      break;
    default:
      SelectInList(dialog, control.number, value.choice);
      break;
  }
}

SettingValue ValueInField(HWND dialog, const SettingField& field) {
  const auto& [row, control] = field;
  switch (row->kind) {
    case SettingKind::kText:
      return {.text = ControlText(dialog, control.number)};
    case SettingKind::kCheckBox:
      return {.choice = IsChecked(dialog, control.number) ? 1 : 0};
    case SettingKind::kRadioGroup:
      for (int i = 0; i < ButtonsOf(*row); ++i) {
        if (IsChecked(dialog, control.number + i)) {
          return {.choice = i};
        }
      }
      return {};
    default:
      return {.choice = ChosenInList(dialog, control.number)};
  }
}

bool BelongsTo(const SettingField& field, int control) {
  const int first = field.control.number;
  return control >= first && control < first + ButtonsOf(*field.row);
}

bool TellsChange(const SettingField& field, int control, int notification) {
  if (!BelongsTo(field, control)) {
    return false;
  }
  switch (field.row->kind) {
    case SettingKind::kText:
      return notification == EN_CHANGE;
    case SettingKind::kCheckBox:
    case SettingKind::kRadioGroup:
      return notification == BN_CLICKED;
    default:
      return notification == CBN_SELCHANGE;
  }
}

std::vector<Tooltip> PlaceTooltips(const std::vector<SettingField>& fields) {
  std::vector<Tooltip> tooltips;
  for (const auto& [row, control] : fields) {
    for (int i = 0; control.tells_place && i < ButtonsOf(*row); ++i) {
      tooltips.push_back({control.number + i, PlaceOf(*row) + control.remark});
    }
  }
  return tooltips;
}

void EnableDefaultsButtons(HWND dialog) { EnableButtons(dialog, true); }

// A disabled button would keep the keyboard to itself. The focus moves first, because the control
// that gets it may send a notification that enables the buttons.
void DisableDefaultsButtons(HWND dialog, int focus) {
  const HWND focused = GetFocus();
  if (focused == GetDlgItem(dialog, ID_USE_DEFAULTS) ||
      focused == GetDlgItem(dialog, ID_STORE_DEFAULTS)) {
    MoveFocus(dialog, focus);
  }
  EnableButtons(dialog, false);
}

}  // namespace qz7
