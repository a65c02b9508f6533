#include "desktop/interchange_commands.h"

#include "core/files/seams.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/merge_source.h"
#include "desktop/interchange/import_columns_dialog.h"
#include "desktop/interchange/import_dialog.h"
#include "desktop/interchange/merge_dialog.h"
#include "desktop/interchange/selection_dialog.h"

namespace qz7 {
namespace {

void ImportFile(CloneImage& image, ImportSession& session) {
  auto lines = OpenImportFile(session);
  if (lines && ShowImportColumnsDialog(session, *lines)) {
    ShowSelectionDialog(image, session, *lines);
  }
}

}  // namespace

void ImportChannels(Document& document, ImportSession& session) {
  CollectMainDialog(document);
  document.working_copy = document.image;
  if (ShowImportDialog(session)) {
    ImportFile(document.working_copy, session);
    document.image = document.working_copy;
  }
}

void MergeFromFile(Document& document, MergeOptions& options) {
  CollectMainDialog(document);
  const auto file = ShowOpenBox(MergeFileBox(document.preferences.data_folder));
  MergeSource source;
  if (file && ReadMergeSource(source, document.working_copy, file->path) &&
      ShowMergeDialog(document.image, document.working_copy, source, options)) {
    document.changed = true;
  }
}

}  // namespace qz7
