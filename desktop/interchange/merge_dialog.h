#pragma once

#include "core/image/clone_image.h"
#include "core/interchange/merge.h"
#include "core/interchange/merge_source.h"

namespace qz7 {

// Asks which channels of a loaded source go where, and merges them into the image; true when it
// was merged, otherwise the image is unchanged.
bool ShowMergeDialog(CloneImage& image, const CloneImage& working_copy, const MergeSource& source,
                     MergeOptions& options);

}  // namespace qz7
