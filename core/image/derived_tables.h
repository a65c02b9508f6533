#pragma once

#include <cstddef>
#include <cstdint>

#include "core/image/channel_codes.h"
#include "core/image/clone_image.h"

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
  Shift shift = Shift::kSimplex;
  bool dcs_on = false;
  int dcs_index = 0;  // 0..127
  int mode = 0;       // 0..3
  std::uint32_t receive_10hz = 0;
  std::uint32_t transmit_10hz = 0;
  int tone = 0;
};

// The fields of a summary entry of 12 bytes, and the other way round.
ChannelSummary DecodeSummary(const std::uint8_t* entry);
void EncodeSummary(const ChannelSummary& channel, std::uint8_t* entry);

// Stores 240 into the channel count and makes the summary and name tables anew from the records.
void RebuildDerivedTables(CloneImage& image);

// Copies the 8 name bytes of every memory channel into its name table entry, programmed or not:
// after a read from the radio.
void CopyNamesToTable(CloneImage& image);

}  // namespace qz7
