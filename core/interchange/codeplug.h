#pragma once

#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"
#include "core/interchange/value_tree.h"

namespace qz7 {

// The document as a tree of named values, in the radio's own bytes: "document", "identity", the
// channels (codeplug_slots.h), "groups", the settings by screen (codeplug_parts.h), and under
// "other" what has no name. Names come in a fixed order; a channel that is not programmed is left
// out.
//
// "other" never decides what has a name: bytes come from the base, then from "other", and a named
// value that they do not show yet is stored as its editor stores it.

ValueTree DumpCodeplug(const CloneImage& image, const RegionVariant& region);

// Makes the document of the tree. `image` holds the base, from which comes whatever is not named;
// nothing instead of a memory channel clears it. Returns what is wrong, "channels/12/rx: REASON"
// each; then the image is half made. Of a new document and DumpCodeplug(x) it makes x, but for
// checksums, filler and the derived tables, which a save makes anew.
std::vector<std::string> BuildCodeplug(const ValueTree& tree, CloneImage& image,
                                       const RegionVariant& region);

// Changes the document as a merge patch changes its tree.
std::vector<std::string> ApplyToCodeplug(CloneImage& image, const ValueTree& patch,
                                         const RegionVariant& region);

}  // namespace qz7
