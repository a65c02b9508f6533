#pragma once

#include "core/files/document.h"

namespace qz7 {

// Names and writes the template of the radio just read; true when it was written.
bool ShowTemplateDialog(Document& document);

}  // namespace qz7
