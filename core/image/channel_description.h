#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// A field of a channel in decoded form: its name and its value as the lists show it.
using NamedValue = std::pair<std::string, std::string>;

// Every field of channel n, as the channel editor shows it but exact, always in the same order: rx,
// tx, shift, offset, tone-mode, tone, dcs, mode, power, step, name, comment, icon, skip, masked,
// option, option-a, option-b. An unprogrammed memory channel has the editor's defaults and empty
// frequencies; a field that the slot does not have, and a code without a meaning, is empty. No
// fields at all for a number that names no channel.
std::vector<NamedValue> DescribeChannel(const CloneImage& image, int n,
                                        const RegionVariant& region);

// Whether channel n can have that field: VFO slots lack the name, and special slots what only
// memory channels have.
bool SlotHasField(int n, std::string_view field);

// How the console program and the comparison name a slot: "channel 12", "channel L1",
// "VFO A V Ham", "home 6m".
std::string SlotTitle(const CloneImage& image, int n);

}  // namespace qz7
