#include "core/editors/wx_names.h"
#include "core/image/settings_map.h"
#include "desktop/editors/feature_frame.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {

bool ShowWxNamesDialog(const FeatureEditor& editor) {
  const SettingControl first{.number = ID_WX_NAME_FIRST, .radio_font = true, .tells_place = false};
  return ShowFeatureWindow({.dialog_template = "DLLDlgWXNames",
                            .help_context = kHelpWxNames,
                            .screen = WxNamesScreen(),
                            .controls = NumberedControls("wx-name", kWxNameCount, first)},
                           editor);
}

}  // namespace qz7
