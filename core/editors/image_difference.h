#pragma once

#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// What differs between two documents, a line each: the file comment, the channels field by field
// with their comments, the groups by the labels of their channels, WX names, autodial numbers, the
// settings by name, the operating state in one line, and what no line has told of the radio block's
// other bytes by their image offset. Checksums, filler and the derived tables do not count: a save
// makes them anew.
std::vector<std::string> DocumentDifferences(const CloneImage& a, const CloneImage& b,
                                             const RegionVariant& region);

// The same for the radio's own memory alone: no file comment, no channel comments.
std::vector<std::string> RadioDifferences(const CloneImage& a, const CloneImage& b,
                                          const RegionVariant& region);

}  // namespace qz7
