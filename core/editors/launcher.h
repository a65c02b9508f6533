#pragma once

#include "core/files/document.h"

namespace qz7 {

// Runs a feature editor on the working copy: `run` takes it and returns true for OK. After a Cancel
// the working copy is the image again, whatever the editor had stored by then.
template <typename Run>
void RunFeatureEditor(Document& document, Run&& run) {
  if (run(BeginWorkingCopy(document))) {
    AcceptWorkingCopy(document);
  } else {
    DropWorkingCopy(document);
  }
}

}  // namespace qz7
