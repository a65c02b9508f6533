#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "core/editors/setting_rows.h"
#include "desktop/toolkit/dialog_support.h"

namespace qz7 {

// The controls behind the rows of a screen.

struct SettingControl {
  int number;  // of a radio group the first of its buttons, which have numbers in sequence
  bool radio_font = false;
  bool tells_place = true;       // by its tooltip, because nothing else tells what it is
  bool pastes_whole = false;     // what does not go in whole is not pasted
  const char* remark = "";       // that follows the place in its tooltip
  bool enables_defaults = true;  // a change enables the defaults buttons
};
using SettingControls = std::map<std::string, SettingControl>;  // by the row's name
// The rows NAME-1, NAME-2 and on, with controls in sequence.
SettingControls NumberedControls(const std::string& name, int count, SettingControl first);

struct SettingField {
  const Setting* row;
  SettingControl control;
};
// One for each row of the screen, in the rows' order; each has a control.
std::vector<SettingField> FieldsOf(const SettingScreen& screen, const SettingControls& controls);

// Fills the lists and limits the texts.
void SetUpField(HWND dialog, const SettingField& field);
void ShowInField(HWND dialog, const SettingField& field, const SettingValue& value);
SettingValue ValueInField(HWND dialog, const SettingField& field);

bool BelongsTo(const SettingField& field, int control);
// Whether the notification tells that the user has changed a field.
bool TellsChange(const SettingField& field, int control, int notification);

std::vector<Tooltip> PlaceTooltips(const std::vector<SettingField>& fields);

// The buttons that show the stored defaults and that store them: both are disabled while the
// controls hold the defaults. A focus on one of them goes to another control then.
void EnableDefaultsButtons(HWND dialog);
void DisableDefaultsButtons(HWND dialog, int focus);

}  // namespace qz7
