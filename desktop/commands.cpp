#include "desktop/commands.h"

#include <windows.h>

#include "core/link/port_setup.h"
#include "core/link/radio_commands.h"
#include "core/link/radio_transfer.h"
#include "desktop/about_dialog.h"
#include "desktop/app_state.h"
#include "desktop/channel_commands.h"
#include "desktop/feature_commands.h"
#include "desktop/file_commands.h"
#include "desktop/files/preferences_dialog.h"
#include "desktop/files/template_dialog.h"
#include "desktop/interchange_commands.h"
#include "desktop/link/clone_dialogs.h"
#include "desktop/printing/printing.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

bool RunReadDialog(CloneRead& read) { return ShowReadDialog(read, *app.port); }

bool NameAndWriteTemplate(CloneImage& /*working_copy*/) {
  if (!ShowTemplateDialog(app.document)) {
    return false;
  }
  SaveTemplatePath(app.document.preferences);
  return true;
}

bool ReadIntoWorkingCopy() {
  return ReadRadio(app.document.working_copy, *app.port, RunReadDialog);
}

bool ReadIntoTemplate() {
  return ReadRadioIntoTemplate(app.document.working_copy, *app.port, RunReadDialog,
                               NameAndWriteTemplate);
}

bool SendWorkingCopy() {
  return SendToRadio(app.document.working_copy, *app.port, [](CloneWrite& write) {
    return ShowWriteDialog(write, *app.port, app.document.preferences);
  });
}

void RunNew() {
  if (AskSaveChanges(app.document)) {
    NewDocument(app.document);
  }
}

bool RunFileCommand(int command) {
  switch (command) {
    case CM_NEW:
      RunNew();
      return true;
    case CM_OPEN:
      OpenRadioFile(app.document);
      return true;
    case CM_SAVE:
      SaveDocument(app.document);
      return true;
    case CM_SAVE_AS:
      SaveDocumentAs(app.document);
      return true;
    case CM_EXPORT:
      ExportChannels(app.document);
      return true;
    case CM_IMPORT:
      ImportChannels(app.document, app.import_session);
      return true;
    case CM_PRINT:
      PrintDocument(app.document, app.dtmf_display);
      return true;
    case CM_EXIT:
      PostMessageA(app.main_window, WM_CLOSE, 0, 0);
      return true;
    default:
      return false;
  }
}

bool RunRadioCommand(int command) {
  switch (command) {
    case CM_GET_DATA:
      ReadRadioIntoDocument(app.document, *app.port, ReadIntoWorkingCopy);
      return true;
    case CM_SEND_DATA:
      SendDocumentToRadio(app.document, *app.port, SendWorkingCopy);
      return true;
    case CM_PORT_SETUP:
      SetUpPort(*app.port, app.document.preferences);
      return true;
    case CM_CREATE_TEMPLATE:
      ReadRadioIntoDocument(app.document, *app.port, ReadIntoTemplate);
      return true;
    default:
      return false;
  }
}

bool RunOtherCommand(int command) {
  switch (command) {
    case CM_MERGE:
      MergeFromFile(app.document, app.merge_options);
      return true;
    case CM_PREFERENCES:
      ShowPreferencesDialog(app.document.preferences);
      return true;
    case CM_HELP_CONTENTS:
      ShowHelpContents();
      return true;
    case CM_HELP_SEARCH:
      ShowHelpSearch();
      return true;
    case CM_HELP_ON_HELP:
      ShowHelpOnHelp();
      return true;
    case CM_ABOUT:
      ShowAboutDialog();
      return true;
    default:
      return false;
  }
}

}  // namespace

bool RunCommand(int command) {
  return RunFileCommand(command) || RunRadioCommand(command) || RunOtherCommand(command) ||
         RunFeatureCommand(command) || RunChannelCommand(command);
}

}  // namespace qz7
