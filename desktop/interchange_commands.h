#pragma once

#include "core/files/document.h"
#include "core/interchange/import_session.h"
#include "core/interchange/merge.h"

namespace qz7 {

// File, Import: the working copy takes the channels and becomes the document. A document that only
// took channels from a file does not count as changed: so it is meant.
void ImportChannels(Document& document, ImportSession& session);

// Memory, Merge from: a document that took channels has changed.
void MergeFromFile(Document& document, MergeOptions& options);

}  // namespace qz7
