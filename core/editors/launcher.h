#pragma once

#include "core/image/clone_image.h"

namespace qz7 {

// Runs a feature editor on the working copy: `run` takes it and returns true for OK. The image
// takes the result over, and the document is marked as changed, only where a byte differs. After a
// Cancel the working copy is the image again, whatever the editor had stored by then.
template <typename Run>
void RunFeatureEditor(CloneImage& image, CloneImage& working_copy, bool& document_changed,
                      Run&& run) {
  working_copy = image;
  if (!run(working_copy)) {
    working_copy = image;
  } else if (working_copy != image) {
    image = working_copy;
    document_changed = true;
  }
}

}  // namespace qz7
