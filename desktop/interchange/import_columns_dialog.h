#pragma once

#include "core/interchange/import_lines.h"
#include "core/interchange/import_session.h"

namespace qz7 {

// Asks which column of the file holds which field, from the start of the lines on; true with OK,
// and then the session has the assignment.
bool ShowImportColumnsDialog(ImportSession& session, ImportLines& lines);

}  // namespace qz7
