#include "desktop/feature_commands.h"

#include "core/editors/launcher.h"
#include "desktop/app_state.h"
#include "desktop/editors/feature_dialogs.h"
#include "desktop/locations.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

bool ShowAutodialDialogOfProgram(const FeatureEditor& editor) {
  return ShowAutodialDialog(editor, app.dtmf_display);
}

// `starts_from_defaults` is the editor's preference.
void Run(bool (*show)(const FeatureEditor&), bool Preferences::*starts_from_defaults) {
  Document& document = app.document;
  const bool from_defaults = document.preferences.*starts_from_defaults;
  RunFeatureEditor(document.image, document.working_copy, document.changed, [&](CloneImage& image) {
    return show({.image = image,
                 .defaults = document.defaults,
                 .defaults_file = DefaultsFilePlaces(),
                 .starts_from_defaults = from_defaults});
  });
}

}  // namespace

bool RunFeatureCommand(int command) {
  switch (command) {
    case CM_AUTODIAL:
      CollectMainDialog(app.document);
      Run(ShowAutodialDialogOfProgram, &Preferences::use_dial_defaults);
      return true;
    case CM_SETTINGS:
      CollectMainDialog(app.document);
      Run(ShowSettingsDialog, &Preferences::use_setting_defaults);
      return true;
    case CM_VORN:
      CollectMainDialog(app.document);
      Run(ShowVornDialog, &Preferences::use_vorn_defaults);
      return true;
    // These two do not collect the main dialog first, wanted: what its controls hold stays there.
    case CM_WX_NAMES:
      Run(ShowWxNamesDialog, &Preferences::use_wx_names_defaults);
      return true;
    case CM_ICON_SELECT:
      Run(ShowIconsDialog, &Preferences::use_icon_defaults);
      return true;
    default:
      return false;
  }
}

}  // namespace qz7
