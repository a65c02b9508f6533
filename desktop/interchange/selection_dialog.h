#pragma once

#include <optional>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/import_selection.h"
#include "core/interchange/import_session.h"

namespace qz7 {

// Lists what the lines hold by the session's columns, and writes what the user selects into the
// image; the channels written with OK, otherwise nothing, and the image is unchanged.
std::optional<PlacedChannels> ShowSelectionDialog(CloneImage& image, ImportSession& session,
                                                  ImportLines& lines, const RegionVariant& region);

}  // namespace qz7
