#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "core/editors/settings_place.h"
#include "desktop/editors/feature_dialogs.h"

namespace qz7 {

// What the dialogs of the feature editors share.

// What such a dialog opens with.
SettingsSource OpeningSource(const FeatureEditor& editor);

// The buttons that show the stored defaults and that store them: both are disabled while the
// controls hold the defaults.
void EnableDefaultsButtons(HWND dialog, bool enabled);
bool DefaultsButtonsEnabled(HWND dialog);

void SaveDefaults(const FeatureEditor& editor);

// What such a dialog does when it is told to.
struct FeatureCommands {
  int help_context;
  void (*show_defaults)(HWND dialog);  // in the controls
  void (*store_defaults)(HWND dialog);
  void (*ok)(HWND dialog);
  void (*value)(HWND dialog, int control, int notification);  // from a control with a value
};
// The commands and the closing of the dialog; FALSE for another message.
INT_PTR HandleFeatureMessage(const FeatureCommands& commands, HWND dialog, UINT message, WPARAM w);

// "Byte 10504", "Byte 10504, bit 7": the tooltip of a control, with its place in the image.
std::string BytePlace(std::size_t offset);
std::string BitPlace(std::size_t offset, std::uint8_t bit);

void FillList(HWND dialog, int control, std::span<const std::string> texts);
// An empty choice is a list without a selection, or a group without a checked button. The buttons
// of a group have numbers in sequence.
void ShowInList(HWND dialog, int control, std::optional<int> choice);
std::optional<int> ChosenInList(HWND dialog, int control);
void ShowInGroup(HWND dialog, int first_button, int buttons, std::optional<int> choice);
std::optional<int> ChosenInGroup(HWND dialog, int first_button, int buttons);
void ShowInPair(HWND dialog, int first_button, std::optional<bool> second_choice);
std::optional<bool> ChosenInPair(HWND dialog, int first_button);

}  // namespace qz7
