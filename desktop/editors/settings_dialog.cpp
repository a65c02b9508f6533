#include "core/editors/settings.h"
#include "desktop/editors/feature_frame.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

SettingControls Controls() {
  return {{"level-a", {ID_LEVEL_A}},
          {"level-b", {ID_LEVEL_B}},
          {"scale-value", {ID_SCALE}},
          {"number-a", {ID_NUMBER_A}},
          {"number-b", {ID_NUMBER_B}},
          {"sensor-display", {ID_SENSOR_DISPLAY}},
          {"time-of-day", {ID_TIME_OF_DAY}},
          {"display-symbol", {.number = ID_DISPLAY_SYMBOL, .radio_font = true}},
          {"symbol-text", {.number = ID_SYMBOL_TEXT, .radio_font = true}},
          // Alone it does not enable the defaults buttons, wanted.
          {"settings-switch", {.number = ID_SETTING_FIRST, .enables_defaults = false}}};
}

void EnableSymbolText(HWND dialog) {
  EnableWindow(GetDlgItem(dialog, ID_SYMBOL_TEXT),
               ChosenInList(dialog, ID_DISPLAY_SYMBOL) == kTextSymbol);
}

}  // namespace

bool ShowSettingsDialog(const FeatureEditor& editor) {
  return ShowFeatureWindow(
      {.dialog_template = "DLLDlgSetting",
       .help_context = kHelpSettings,
       .screen = SettingsScreen(),
       .controls = Controls(),
       .pictures = {"symbol1", "symbol2", "symbol3", "symbol4", "symbol5", "symbol6", "symbol7"},
       .on_shown = EnableSymbolText,
       .on_command = [](HWND dialog, int) { EnableSymbolText(dialog); }},
      editor);
}

}  // namespace qz7
