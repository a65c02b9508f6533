#pragma once

#include "core/image/clone_image.h"

namespace qz7 {

// Whether the image comes from a radio of another version than the program's region.
bool NeedsVariantConversion(const CloneImage& image);

// Puts the special slots of a document from another version into their bands, and what lies in the
// MW band onto the region's grid.
void ConvertChannelsForVariant(CloneImage& image);

}  // namespace qz7
