#include "desktop/interchange/import_dialog.h"

#include <windows.h>

#include <string>

#include "core/files/profile_paths.h"
#include "core/files/seams.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr const char* kFolderKey = "ImportDir";
constexpr std::size_t kLongestFolder = 259;
constexpr std::size_t kLongestFileName = 128;

void ShowSeparator(HWND dialog, int control, char separator) {
  const char text[] = {separator, '\0'};
  LimitText(dialog, control, 1);
  SetDlgItemTextA(dialog, control, text);
}

struct ImportWindow {
  ImportSession& session;
  const std::optional<ChosenFile>& chosen;
};

void TakeFile(HWND dialog, const ChosenFile& file) {
  ChooseImportFile(StateOf<ImportWindow>(dialog).session, file);
  SetDlgItemTextA(dialog, ID_IMPORT_FILE, PathText(file.path).c_str());
  const std::filesystem::path folder = ImportFolder(file);
  if (!folder.empty()) {
    WriteProfilePath(kFolderKey, folder, kLongestFolder);
  }
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  const auto& [session, chosen] = StateOf<ImportWindow>(dialog);
  OpenImportDialog(session);
  const ImportOptions& options = session.options;
  LimitText(dialog, ID_IMPORT_FILE, kLongestFileName);
  CheckRadioButton(dialog, ID_FIXED_LENGTH, ID_DELIMITED,
                   options.delimited ? ID_DELIMITED : ID_FIXED_LENGTH);
  ShowSeparator(dialog, ID_FIELD_SEPARATOR, options.field_separator);
  ShowSeparator(dialog, ID_TEXT_SEPARATOR, options.text_separator);
  Check(dialog, ID_HEADERS, options.headers);
  if (chosen) {
    TakeFile(dialog, *chosen);
  }
  SetFocus(GetDlgItem(dialog, chosen ? IDOK : ID_BROWSE_IMPORT));
  return FALSE;
}

void OnBrowse(HWND dialog) {
  const auto file =
      ShowOpenBox(ImportFileBox(ReadProfilePath(ReadProfile(), kFolderKey, kLongestFolder)));
  if (file) {
    TakeFile(dialog, *file);
  }
}

// Without a chosen file, too: that the file cannot be opened is said when it is tried.
void OnOk(HWND dialog) {
  ImportSession& session = StateOf<ImportWindow>(dialog).session;
  ImportOptions options = session.options;
  options.field_separator = SeparatorOf(ControlText(dialog, ID_FIELD_SEPARATOR));
  options.text_separator = SeparatorOf(ControlText(dialog, ID_TEXT_SEPARATOR));
  options.delimited = IsChecked(dialog, ID_DELIMITED);
  options.headers = IsChecked(dialog, ID_HEADERS);
  TakeImportOptions(session, options);
  EndDialog(dialog, 0);
}

// Help does nothing here.
void OnCommand(HWND dialog, int control, int /*notification*/) {
  switch (control) {
    case ID_BROWSE_IMPORT:
      OnBrowse(dialog);
      break;
    case ID_TAB_SEPARATOR:
      // The Tab key leaves the field instead of typing one.
      ShowSeparator(dialog, ID_FIELD_SEPARATOR, '\t');
      break;
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcImport(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

bool ShowImportDialog(ImportSession& session, const std::optional<ChosenFile>& chosen) {
  ImportWindow window{.session = session, .chosen = chosen};
  return RunDialog("DlgImport", DlgProcImport, &window) == 0;
}

}  // namespace qz7
