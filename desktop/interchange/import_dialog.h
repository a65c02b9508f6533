#pragma once

#include <optional>

#include "core/interchange/import_session.h"

namespace qz7 {

// Asks for the file to import, where none is chosen already, and how its lines are laid out; true
// with OK, and then the session has the options.
bool ShowImportDialog(ImportSession& session, const std::optional<ChosenFile>& chosen = {});

}  // namespace qz7
