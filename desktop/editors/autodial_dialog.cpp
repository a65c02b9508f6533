#include "core/editors/autodial.h"
#include "core/image/settings_map.h"
#include "desktop/editors/feature_frame.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

SettingControls Controls() {
  SettingControls controls =
      NumberedControls("autodial", kAutodialCount,
                       {.number = ID_AUTODIAL_FIRST, .tells_place = false, .pastes_whole = true});
  controls["autodial-flag"] = {ID_AUTODIAL_FLAG};
  return controls;
}

void ShowNumbers(HWND dialog, DtmfDisplay display) {
  Check(dialog, ID_DTMF_SYMBOLS, display == DtmfDisplay::kSymbols);
  for (int n = 0; n < kAutodialCount; ++n) {
    const std::string number = ShownAs(display, ControlText(dialog, ID_AUTODIAL_FIRST + n));
    SetDlgItemTextA(dialog, ID_AUTODIAL_FIRST + n, number.c_str());
  }
}

}  // namespace

bool ShowAutodialDialog(const FeatureEditor& editor, DtmfDisplay& display) {
  const auto on_command = [&display](HWND dialog, int control) {
    if (control == ID_DTMF_SYMBOLS) {
      display = IsChecked(dialog, ID_DTMF_SYMBOLS) ? DtmfDisplay::kSymbols : DtmfDisplay::kLetters;
      ShowNumbers(dialog, display);
    }
  };
  return ShowFeatureWindow({.dialog_template = "DLLDlgAutoDial",
                            .help_context = kHelpAutodial,
                            .screen = AutodialScreen(),
                            .controls = Controls(),
                            .on_shown = [&display](HWND dialog) { ShowNumbers(dialog, display); },
                            .on_command = on_command},
                           editor);
}

}  // namespace qz7
