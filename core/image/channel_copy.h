#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/image/channel_record.h"
#include "core/image/clone_image.h"

namespace qz7 {

// A memory channel apart from an image: everything that travels with it but its places in the
// groups.
struct ChannelCopy {
  ChannelRecord record{};
  std::uint8_t flags = 0;
  std::array<std::uint8_t, kNameEntrySize> name{};  // its name table entry
  std::array<char, kCommentSize> comment{};
  bool operator==(const ChannelCopy&) const = default;
};

inline bool IsProgrammed(const ChannelCopy& channel) {
  return (channel.flags & kFlagProgrammed) != 0;
}

// Nothing for a number that names no memory channel.
std::optional<ChannelCopy> CopyOfChannel(const CloneImage& image, int n);
// Writes it over memory channel n, whose groups stay as they are; a number that names none makes
// the call do nothing.
void PlaceCopy(CloneImage& image, int n, const ChannelCopy& channel);

// Channels as bytes for another run of the program: the number of channels in 2 bytes, then the
// four fields of each. Reading gives nothing where the bytes end too early or tell of more channels
// than a radio has; what stands behind them does not count.
std::string BytesOfCopies(std::span<const ChannelCopy> channels);
std::optional<std::vector<ChannelCopy>> CopiesOfBytes(std::string_view bytes);

}  // namespace qz7
