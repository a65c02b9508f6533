#pragma once

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// The group editor over the working copy, opened with group g = 0..4. True for OK.
bool ShowGroupsDialog(const CloneImage& image, CloneImage& working_copy, int g,
                      const RegionVariant& region);

}  // namespace qz7
