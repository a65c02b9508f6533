#pragma once

#include "core/interchange/import_session.h"

namespace qz7 {

// Asks for the file to import and how its lines are laid out; true with OK, and then the session
// has the options.
bool ShowImportDialog(ImportSession& session);

}  // namespace qz7
