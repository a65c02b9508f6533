#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/files/document.h"
#include "core/link/serial_port.h"

namespace qz7 {

// The file that the command line names.
struct NamedFile {
  std::string name;                           // as given, as it is shown
  std::optional<std::filesystem::path> path;  // the full one; nothing where that would be too long
};

// The program's start once its windows are there: opens the port that the preferences name, makes a
// new document, opens the file of the command line, loads the stored defaults
// (without any, those of the new document), and advises a user who has no template file.
void StartDocument(Document& document, SerialPort& port, const std::optional<NamedFile>& file,
                   const DefaultsFile& defaults);

}  // namespace qz7
