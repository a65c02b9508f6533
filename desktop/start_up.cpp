#include "desktop/start_up.h"

#include "core/files/seams.h"
#include "core/link/port_setup.h"

namespace qz7 {
namespace {

void Open(Document& document, const NamedFile& file) {
  if (file.path) {
    OpenNamedDocument(document, *file.path);
  } else {
    ShowFileError("Cannot open file:\n" + file.name);
  }
}

void AdviseTemplate(const Preferences& preferences) {
  if (preferences.template_path.empty()) {
    ShowMessage(
        "One of the first things you should do\nis create a template file.\n"
        "Select Help|Contents for instructions.",
        kProgramTitle, Buttons::kOk, Icon::kNone);
  }
}

}  // namespace

void StartDocument(Document& document, SerialPort& port, const std::optional<NamedFile>& file,
                   const DefaultsFile& defaults) {
  OpenChosenPort(port, document.preferences.port_index);
  // The stored defaults are not loaded yet: a document that takes them takes zeros, on purpose.
  NewDocument(document);
  DefaultsRecord of_new_document{};
  FillDefaultsRecord(of_new_document, document.image);
  if (file) {
    Open(document, *file);
  }
  if (!LoadDefaultsRecord(document.defaults, defaults)) {
    document.defaults = of_new_document;
  }
  AdviseTemplate(document.preferences);
}

}  // namespace qz7
