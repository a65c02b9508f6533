#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "desktop/editors/feature_dialogs.h"
#include "desktop/editors/setting_controls.h"

namespace qz7 {

// A feature editor's window: the fields of its screen, the two defaults buttons, OK, Cancel and
// Help.
struct FeatureWindow {
  const char* dialog_template;
  int help_context;
  const SettingScreen& screen;
  SettingControls controls;
  std::vector<std::string> pictures{};  // of its lists' entries, by name
  // What else it does, after the fields have been filled and when a control has notified. What it
  // writes into the fields is no change by the user.
  std::function<void(HWND dialog)> on_shown{};
  std::function<void(HWND dialog, int control)> on_command{};
};

// True for OK, with what the fields hold stored in the image; false for Cancel and a closed window.
bool ShowFeatureWindow(const FeatureWindow& window, const FeatureEditor& editor);

}  // namespace qz7
