#pragma once

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// Whether the image comes from a radio of another version than the program's region.
bool NeedsVariantConversion(const CloneImage& image, const RegionVariant& region);

// Puts the special slots of a document from another version into their bands, and what lies in the
// MW band onto the region's grid.
void ConvertChannelsForVariant(CloneImage& image, const RegionVariant& region);

}  // namespace qz7
