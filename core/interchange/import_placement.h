#pragma once

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"
#include "core/interchange/import_reader.h"

namespace qz7 {

enum class PmsPairs { kExcluded, kIncluded };

// How many memory channels from `first` (1..) on are free, up to the first programmed one or the
// last channel that there is.
int FreeRunLength(const CloneImage& image, int first, PmsPairs pms);

// Where the longest run of free channels below the PMS pairs starts, the first one of several; 1
// when there is none.
int DefaultStartChannel(const CloneImage& image);

// Writes a record into memory channel n: record, flags, name table entry and comment. Nothing is
// written for a frequency that the radio does not accept or a channel that there is not.
void PlaceImportRecord(CloneImage& image, const ImportRecord& record, int n,
                       const RegionVariant& region);

}  // namespace qz7
