#pragma once

#include "core/image/clone_image.h"

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
inline constexpr std::uint8_t kGroupInUse = 0;
constexpr std::size_t GroupStateOffset(int g) {
  return kGroupStates.offset + static_cast<std::size_t>(g);
}
// i = 0..24: behind a group's last entry stands the next group's first one.
constexpr std::size_t GroupEntryOffset(int g, int i) {
  return kGroupTable.offset + static_cast<std::size_t>(g * kGroupMembers + i) * kGroupEntrySize;
}

inline constexpr int kWxNameCount = 10;
inline constexpr std::size_t kWxNameLength = 8;
inline constexpr Region kWxNames{.offset = 10'114, .size = kWxNameCount * kWxNameLength};
constexpr Region WxName(int n) {
  return {.offset = kWxNames.offset + static_cast<std::size_t>(n) * kWxNameLength,
          .size = kWxNameLength};
}

inline constexpr std::size_t kScaleValue = 10'194;
inline constexpr std::uint8_t kLowestScaleValue = 6;

inline constexpr std::uint8_t kTextEnd = 0xFF;
inline constexpr std::size_t kCodeTextLength = 16;
inline constexpr Region kVornIdentifier{.offset = 10'208, .size = kCodeTextLength};
inline constexpr int kAutodialCount = 9;
inline constexpr Region kAutodial{.offset = 10'252, .size = kAutodialCount * kCodeTextLength};
constexpr Region AutodialNumber(int n) {
  return {.offset = kAutodial.offset + static_cast<std::size_t>(n) * kCodeTextLength,
          .size = kCodeTextLength};
}

// The main dialog's settings. What the bits of the three switch fields do is the radio's business;
// bit 6 of the second and bits 3 and 6 of the third belong to other dialogs.
//
//   10200  lock            10201  a choice of three  10202  receive saver  10203  lamp
//   10206  bell            10224  sensor display     10240  auto power off
//   10241  transmit time-out                         10504..10506  switches
inline constexpr std::size_t kLock = 10'200;
inline constexpr std::size_t kMainChoice = 10'201;
inline constexpr std::size_t kReceiveSaver = 10'202;
inline constexpr std::size_t kLamp = 10'203;
inline constexpr std::size_t kBell = 10'206;
inline constexpr std::size_t kSensorDisplay = 10'224;
inline constexpr std::size_t kAutoPowerOff = 10'240;
inline constexpr std::size_t kTransmitTimeOut = 10'241;
inline constexpr std::size_t kSwitchesA = 10'504;
inline constexpr std::size_t kSwitchesB = 10'505;
inline constexpr std::size_t kSwitchesC = 10'506;

// The settings of the feature editors, beside the ones above. Of the switches each editor owns one
// bit.
//
//   10196  2           number A, high byte first     10198  2   number B, high byte first
//   10205              VORN mode, 0..2               10207      VORN flag, 0 or 1
//   10225  15          display icons, 0..26 each
//   10242              time of day, 0..144 in steps of 10 minutes
//   10243              display symbol, 0..5, or 6 for the symbol text
//   10244  8           symbol text, the radio's character codes, zero-padded
//   10502              level A, 0..15                10503      level B, 0..8
inline constexpr Region kNumberA{.offset = 10'196, .size = 2};
inline constexpr Region kNumberB{.offset = 10'198, .size = 2};
inline constexpr std::size_t kVornMode = 10'205;
inline constexpr std::size_t kVornFlag = 10'207;
inline constexpr int kDisplayIconCount = 15;
inline constexpr Region kDisplayIcons{.offset = 10'225, .size = kDisplayIconCount};
inline constexpr std::size_t kTimeOfDay = 10'242;
inline constexpr std::size_t kDisplaySymbol = 10'243;
inline constexpr Region kSymbolText{.offset = 10'244, .size = 8};
inline constexpr std::size_t kLevelA = 10'502;
inline constexpr std::size_t kLevelB = 10'503;

// The pieces that the defaults record mirrors (core/files/defaults_record.h).
inline constexpr Region kMirroredSettings{.offset = 9618, .size = 789};
inline constexpr Region kMirroredStates{.offset = 10'490, .size = 4};
inline constexpr std::size_t kMirroredState = 10'497;
inline constexpr Region kMirroredLevels{.offset = 10'502, .size = 5};

}  // namespace qz7
