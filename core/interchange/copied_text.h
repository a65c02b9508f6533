#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/image/channel_copy.h"
#include "core/image/region_variant.h"

namespace qz7 {

// Channels as the text that a spreadsheet takes and gives: the columns of the export with their
// titles, separated by tabs and without quotation marks, a line per programmed channel, lines ended
// by CR LF. A tab or a line end inside a name or a comment becomes a blank.
std::string TextOfChannels(std::span<const ChannelCopy> channels);

// The channels of such a text, or of any other list: recognised by its header line where that names
// a receive frequency, otherwise with the columns in the export's order between tabs, semicolons or
// commas. Lines whose receive frequency the image's radio does not accept are left out.
std::vector<ChannelCopy> ChannelsOfText(const CloneImage& image, std::string_view text,
                                        const RegionVariant& region);

}  // namespace qz7
