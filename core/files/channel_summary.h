#pragma once

#include <cstddef>
#include <cstdint>

namespace qz7 {

// An entry of the channel summary table, the form of a channel that every radio data file carries,
// whatever radio it is for:
//
//   byte  bits 7      6       5-4      3       2              1             0
//    0         DCS..  DCS on  shift    skip    tone squelch   tone encoder  in use
//    1         mode (7-6), DCS index (5-0 with bit 7 of byte 0)
//    2-5       receive frequency in 10 Hz
//    6-9       transmit frequency in 10 Hz
//   10-11      CTCSS tone in tenths of a hertz
struct ChannelSummary {
  bool in_use = false;
  bool tone_encoder = false;
  bool tone_squelch = false;
  bool skip = false;
  int shift = 0;
  std::uint32_t receive_10hz = 0;
  std::uint32_t transmit_10hz = 0;
  int tone = 0;
};

// The fields of a summary entry of 12 bytes.
ChannelSummary DecodeSummary(const std::uint8_t* entry);

}  // namespace qz7
