#pragma once

#include "core/files/document.h"

namespace qz7 {

// The memory channel list over the document. True when it was accepted.
bool ShowMemoryListDialog(Document& document);

}  // namespace qz7
