#include "desktop/channel_commands.h"

#include "core/editors/launcher.h"
#include "core/image/operating_state.h"
#include "desktop/app_state.h"
#include "desktop/editors/channel_editor_dialog.h"
#include "desktop/editors/groups_dialog.h"
#include "desktop/editors/memory_list_dialog.h"
#include "desktop/menu_channels.h"

namespace qz7 {
namespace {

// What was edited so far counts as accepted: the memory list starts from the working copy, and
// would lose what an editor of a slot wrote into the image alone.
void BeginChannelEditing(Document& document) {
  CollectMainDialog(document);
  RefreshOperatingState(document.image);
  document.working_copy = document.image;
}

void EditGroups(Document& document) {
  CollectMainDialog(document);
  RunFeatureEditor(document.image, document.working_copy, document.changed,
                   [&](CloneImage& working_copy) {
                     return ShowGroupsDialog(document.image, working_copy, 0, document.region);
                   });
}

}  // namespace

bool RunChannelCommand(int command) {
  if (command == CM_GROUP) {
    EditGroups(app.document);
    return true;
  }
  const auto slot = ChannelOfCommand(command);
  if (command != CM_VIEW && !slot) {
    return false;
  }
  BeginChannelEditing(app.document);
  if (slot) {
    ShowChannelEditorDialog(app.document, *slot);
  } else {
    ShowMemoryListDialog(app.document);
  }
  return true;
}

}  // namespace qz7
