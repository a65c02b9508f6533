#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/editors/channel_editor.h"

namespace qz7 {

// What the channel editor says beside its fields while they are filled in: how OK will read them,
// and in words what it would refuse. Nothing is refused by it.

// "145.0050 MHz, 2 m, 5 kHz steps" of the text in the receive field of channel n.
std::string ReceiveReading(const CloneImage& image, int n, std::string_view text,
                           const RegionVariant& region);
// The same of the transmit field, which the radio's coverage is no matter for.
std::string TransmitReading(std::string_view text, const RegionVariant& region);
// "1.05 MHz"
std::string OffsetReading(Frequency offset);

// Which of the lists of tones and codes a tone type uses; both keep their choice whatever it is.
// Nothing is a type that has no name.
std::string ToneListUse(std::optional<ToneMode> tone_type);

}  // namespace qz7
