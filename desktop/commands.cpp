#include "desktop/commands.h"

#include <windows.h>

#include "core/editors/launcher.h"
#include "core/files/paths.h"
#include "core/files/seams.h"
#include "core/image/operating_state.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/merge_source.h"
#include "core/link/port_setup.h"
#include "core/link/radio_commands.h"
#include "core/link/radio_transfer.h"
#include "desktop/about_dialog.h"
#include "desktop/app_state.h"
#include "desktop/dropped_file.h"
#include "desktop/editors/channel_editor_dialog.h"
#include "desktop/editors/feature_dialogs.h"
#include "desktop/editors/groups_dialog.h"
#include "desktop/editors/memory_list_dialog.h"
#include "desktop/file_commands.h"
#include "desktop/files/preferences_dialog.h"
#include "desktop/files/template_dialog.h"
#include "desktop/interchange/import_columns_dialog.h"
#include "desktop/interchange/import_dialog.h"
#include "desktop/interchange/merge_dialog.h"
#include "desktop/interchange/selection_dialog.h"
#include "desktop/link/clone_dialogs.h"
#include "desktop/locations.h"
#include "desktop/main_window.h"
#include "desktop/menu_channels.h"
#include "desktop/printing/printing.h"
#include "desktop/status_line.h"
#include "desktop/toolkit/help.h"

namespace qz7 {
namespace {

// The radio.

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

void GetData(int) {
  app.note = ReadRadioIntoDocument(app.document, *app.port, ReadIntoWorkingCopy)
                 ? TransferredNote("read from", app.document)
                 : "Nothing read from the radio";
}

void CreateTemplateFromRadio(int) {
  app.note = ReadRadioIntoDocument(app.document, *app.port, ReadIntoTemplate)
                 ? "Template created"
                 : "No template created";
}

void SendData(int) {
  app.note = SendDocumentToRadio(app.document, *app.port, SendWorkingCopy)
                 ? TransferredNote("sent to", app.document)
                 : "Nothing sent to the radio";
}

// Files.

constexpr const char* kNothingOpened = "Nothing opened";

void Open(int) { app.note = OpenRadioFile(app.document) ? "" : kNothingOpened; }
void Save(int) { app.note = SaveDocument(app.document) ? "" : "Nothing saved"; }
void SaveAs(int) { app.note = SaveDocumentAs(app.document) ? "" : "Nothing saved"; }

void Export(int) {
  app.note = ExportChannels(app.document) ? "Exported to " + PathText(app.document.last_export_name)
                                          : "Nothing exported";
}

// Channels.

// What was edited so far counts as accepted: the memory list starts from the working copy, and
// would lose what an editor of a slot wrote into the image alone.
void BeginChannelEditing() {
  RefreshOperatingState(app.document.image);
  BeginWorkingCopy(app.document);
}

void ViewMemory(int) {
  BeginChannelEditing();
  ShowMemoryListDialog(app.document);
}

void EditSlot(int command) {
  BeginChannelEditing();
  ShowChannelEditorDialog(app.document, ChannelOfCommand(command));
}

void EditGroups(int) {
  RunFeatureEditor(app.document, [](CloneImage& working_copy) {
    return ShowGroupsDialog(app.document.image, working_copy, 0, app.document.region);
  });
}

// Interchange.

constexpr const char* kImportCancelled = "Import cancelled";

std::string ImportFile(CloneImage& image) {
  ImportSession& session = app.import_session;
  auto lines = OpenImportFile(session);
  if (!lines) {
    return "Nothing imported";
  }
  const auto placed = ShowImportColumnsDialog(session, *lines)
                          ? ShowSelectionDialog(image, session, *lines, app.document.region)
                          : std::nullopt;
  if (placed) {
    return ImportedNote(*placed);
  }
  // An empty file ends the selection by itself.
  return session.line_count == 0 ? "Nothing imported" : kImportCancelled;
}

// A document that only took channels from a file does not count as changed: so it is meant.
std::string Import(const std::optional<ChosenFile>& chosen) {
  CloneImage& working_copy = BeginWorkingCopy(app.document);
  if (!ShowImportDialog(app.import_session, chosen)) {
    return kImportCancelled;
  }
  std::string note = ImportFile(working_copy);
  TakeWorkingCopy(app.document);
  return note;
}

void ImportChannels(int) { app.note = Import(std::nullopt); }

std::string Merge(Document& document) {
  constexpr const char* kCancelled = "Merge cancelled";
  const auto file = ShowOpenBox(MergeFileBox(document.preferences.data_folder));
  if (!file) {
    return kCancelled;
  }
  MergeSource source;
  if (!ReadMergeSource(source, document.working_copy, file->path)) {
    return "Nothing merged";
  }
  source.region = document.region;
  if (!ShowMergeDialog(document.image, document.working_copy, source, app.merge_options)) {
    return kCancelled;
  }
  document.changed = true;
  return "Merged from " + PathText(file->name);
}

void MergeFromFile(int) { app.note = Merge(app.document); }

// The radio's settings. `starts_from_defaults` is the editor's preference.
void EditFeature(bool (*show)(const FeatureEditor&), bool Preferences::*starts_from_defaults) {
  Document& document = app.document;
  const bool from_defaults = document.preferences.*starts_from_defaults;
  RunFeatureEditor(document, [&](CloneImage& working_copy) {
    return show({.image = working_copy,
                 .defaults = document.defaults,
                 .defaults_file = app.defaults_file,
                 .starts_from_defaults = from_defaults});
  });
}

bool ShowAutodial(const FeatureEditor& editor) {
  return ShowAutodialDialog(editor, app.dtmf_display);
}

void EditAutodial(int) { EditFeature(ShowAutodial, &Preferences::use_dial_defaults); }
void EditSettings(int) { EditFeature(ShowSettingsDialog, &Preferences::use_setting_defaults); }
void EditVorn(int) { EditFeature(ShowVornDialog, &Preferences::use_vorn_defaults); }
void EditWxNames(int) { EditFeature(ShowWxNamesDialog, &Preferences::use_wx_names_defaults); }
void EditIcons(int) { EditFeature(ShowIconsDialog, &Preferences::use_icon_defaults); }

constexpr bool kCollects = true;
// Saving asks or collects by itself where it has to.
constexpr bool kAsItIs = false;

// No key is one of those that a field has itself: Ctrl and A, C, V, X, Y or Z.
constexpr Command kCommands[] = {
    {CM_NEW, kAsItIs, [](int) { StartNewFile(app.document); }, {'N'}},
    {CM_OPEN, kAsItIs, Open, {'O'}},
    {CM_SAVE, kAsItIs, Save, {'S'}},
    {CM_SAVE_AS, kAsItIs, SaveAs, {'S', true}},
    {CM_IMPORT, kCollects, ImportChannels, {'I'}},
    {CM_EXPORT, kCollects, Export, {'E'}},
    {CM_PRINT, kAsItIs, [](int) { PrintDocument(app.document, app.dtmf_display); }, {'P'}},
    {CM_EXIT, kAsItIs, [](int) { PostMessageA(app.main_window, WM_CLOSE, 0, 0); }},
    {CM_GET_DATA, kAsItIs, GetData, {'G'}},
    {CM_SEND_DATA, kCollects, SendData, {'T'}},
    {CM_PORT_SETUP, kAsItIs, [](int) { SetUpPort(*app.port, app.document.preferences); }},
    {CM_CREATE_TEMPLATE, kAsItIs, CreateTemplateFromRadio},
    {CM_VIEW, kCollects, ViewMemory, {'M'}},
    {CM_GROUP, kCollects, EditGroups},
    {CM_MERGE, kCollects, MergeFromFile},
    {CM_VFO_A_FIRST, kCollects, EditSlot, {}, kSlotCommands},
    {CM_AUTODIAL, kCollects, EditAutodial},
    {CM_SETTINGS, kCollects, EditSettings},
    {CM_VORN, kCollects, EditVorn},
    // These two do not collect first, wanted: what the main dialog's controls hold stays there.
    {CM_WX_NAMES, kAsItIs, EditWxNames},
    {CM_ICON_SELECT, kAsItIs, EditIcons},
    {CM_PREFERENCES, kAsItIs, [](int) { ShowPreferencesDialog(app.document.preferences); }},
    {CM_HELP_CONTENTS, kAsItIs, [](int) { ShowHelpContents(); }},
    {CM_HELP_SEARCH, kAsItIs, [](int) { ShowHelpSearch(); }},
    {CM_HELP_ON_HELP, kAsItIs, [](int) { ShowHelpOnHelp(); }},
    {CM_ABOUT, kAsItIs, [](int) { ShowAboutDialog(ProgramPath()); }},
};

std::string TakeDropped(const std::filesystem::path& path) {
  Document& document = app.document;
  const std::string name = PathText(NamePart(path));
  switch (KindOfDropped(path)) {
    case DroppedKind::kRadioFile:
      return OpenRadioFile(document, path) ? "" : kNothingOpened;
    case DroppedKind::kList:
      CollectMainDialog(document);
      return Import(FileAt(path));
    case DroppedKind::kTemplate:
      return name + (TakeTemplate(document.preferences, path) ? " is the template"
                                                              : " did not become the template");
    default:
      return name + " is no radio file, list or template";
  }
}

}  // namespace

std::span<const Command> Commands() { return kCommands; }

bool RunCommand(int command) {
  app.note.clear();
  const bool known = RunCommand(kCommands, app.document, command);
  RefreshStatusLine();
  return known;
}

void RunDrop(std::span<const std::filesystem::path> files) {
  app.note.clear();
  RunWhole(app.document, [&] { app.note = DroppedNote(TakeDropped(files.front()), files.size()); });
  RefreshStatusLine();
}

}  // namespace qz7
