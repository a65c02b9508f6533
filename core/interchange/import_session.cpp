#include "core/interchange/import_session.h"

namespace qz7 {

void OpenImportDialog(ImportSession& session) {
  const std::string title = session.options.title;
  session.options = {};
  session.options.title = title;
}

FileBox ImportFileBox(const std::filesystem::path& folder) {
  return {.title = "Open File for Import",
          .filters = {{"Travel Plus files (*.tpe)", "*.tpe"},
                      {"ARRL Repeater files (*.rd)", "*.rd"},
                      {"Comma delimited (*.csv)", "*.csv"},
                      {"Text files (*.txt)", "*.txt"},
                      {"All files (*.*)", "*.*"}},
          .default_extension = "rd",
          .folder = folder,
          .initial_name = ""};
}

void ChooseImportFile(ImportSession& session, const ChosenFile& file) {
  session.options.path = file.path;
  session.options.title = PathText(file.name);
}

std::filesystem::path ImportFolder(const ChosenFile& file) {
  return file.path.native().substr(0, file.name_offset);
}

void TakeImportOptions(ImportSession& session, const ImportOptions& options) {
  session.options = options;
  session.splitter.separator = options.field_separator;
}

char SeparatorOf(std::string_view text) { return text.empty() ? '\0' : text.front(); }

std::string ImportCaption(const ImportSession& session) {
  return "Import Data - " + session.options.title;
}

}  // namespace qz7
