#pragma once

#include <optional>
#include <string>

#include "core/files/document.h"
#include "core/link/serial_port.h"

namespace qz7 {

// The program's start once its windows are there: opens the port that the preferences name, makes a
// new document, opens the file of the command line (a full path), loads the stored defaults
// (without any, those of the new document), and advises a user who has no template file.
void StartDocument(Document& document, SerialPort& port, const std::optional<std::string>& path,
                   const DefaultsFile& defaults);

}  // namespace qz7
