#include "core/editors/icons.h"
#include "core/image/settings_map.h"
#include "desktop/editors/feature_frame.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

std::vector<std::string> IconNames() {
  std::vector<std::string> names;
  names.reserve(kIconCount);
  for (int icon = 0; icon < kIconCount; ++icon) {
    names.push_back(IconName(icon));
  }
  return names;
}

}  // namespace

bool ShowIconsDialog(const FeatureEditor& editor) {
  constexpr int kLists = kDisplayIcons.size;
  return ShowFeatureWindow({.dialog_template = "DLLDlgIconSelect",
                            .help_context = kHelpIcons,
                            .screen = IconsScreen(),
                            .controls = NumberedControls("icon", kLists, {ID_ICON_FIRST}),
                            .pictures = IconNames()},
                           editor);
}

}  // namespace qz7
