#pragma once

#include <string>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// What the row of memory channel n in the memory list has no room for, a line each: the transmit
// frequency, the tone that is in use, the comment. Empty for a channel that is not programmed.
std::string RowTip(const CloneImage& image, int n, const RegionVariant& region);

}  // namespace qz7
