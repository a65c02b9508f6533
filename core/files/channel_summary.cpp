#include "core/files/channel_summary.h"

#include "core/image/clone_image.h"

namespace qz7 {

ChannelSummary DecodeSummary(const std::uint8_t* entry) {
  constexpr std::uint8_t kInUse = 0x01;
  constexpr std::uint8_t kToneEncoder = 0x02;
  constexpr std::uint8_t kToneSquelch = 0x04;
  constexpr std::uint8_t kSkip = 0x08;
  const std::uint8_t flags = entry[0];
  return {.in_use = (flags & kInUse) != 0,
          .tone_encoder = (flags & kToneEncoder) != 0,
          .tone_squelch = (flags & kToneSquelch) != 0,
          .skip = (flags & kSkip) != 0,
          .shift = flags >> 4 & 3,
          .receive_10hz = ReadU32(entry + 2),
          .transmit_10hz = ReadU32(entry + 6),
          .tone = ReadU16(entry + 10)};
}

}  // namespace qz7
