#pragma once

#include "image/clone_image.h"

namespace qz7 {

// Where the radio's settings lie in the image, beside the regions of clone_image.h.
//
//    3102 + g          state of memory group g = 0..4: 255 empty, 0 has members
//    3110 + g * 48     its 24 entries of 2 bytes: 0 and the channel's index, or 255 255
//   10114 + n * 8      WX name n = 0..9, padded with blanks
//   10194              scale value, 6..15
//   10208              VORN identifier, 16 codes, ended by 0xFF
//   10252 + n * 16     autodial memory n = 0..8, 16 DTMF digit codes, ended by 0xFF
//   10487              the group last stored with members
inline constexpr int kGroupCount = 5;
inline constexpr int kGroupMembers = 24;
inline constexpr std::size_t kGroupEntrySize = 2;
inline constexpr Region kGroupStates{.offset = 3102, .size = kGroupCount};
inline constexpr Region kGroupTable{.offset = 3110,
                                    .size = kGroupCount * kGroupMembers * kGroupEntrySize};
inline constexpr std::size_t kLastGroup = 10'487;
inline constexpr std::uint8_t kGroupEmpty = 0xFF;

inline constexpr int kWxNameCount = 10;
inline constexpr std::size_t kWxNameLength = 8;
inline constexpr Region kWxNames{.offset = 10'114, .size = kWxNameCount * kWxNameLength};

inline constexpr std::size_t kScaleValue = 10'194;
inline constexpr std::uint8_t kLowestScaleValue = 6;

inline constexpr std::uint8_t kTextEnd = 0xFF;
inline constexpr std::size_t kCodeTextLength = 16;
inline constexpr Region kVornIdentifier{.offset = 10'208, .size = kCodeTextLength};
inline constexpr int kAutodialCount = 9;
inline constexpr Region kAutodial{.offset = 10'252, .size = kAutodialCount * kCodeTextLength};

}  // namespace qz7
