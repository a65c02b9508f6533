#pragma once

#include "core/image/clone_image.h"

namespace qz7 {

// The radio's current operating channel, unpacked from a channel record:
//
//   10451  operating mode: 0, 2, 3, 4 memory; 1 VFO; 5 home
//   10454  VFO bank selector: 0 first bank, otherwise the second
//   10455  slot index of the VFO that a clone write mirrors
//   10456  record byte 0
//   10457  power          10458  step index      10459  shift      10460  tone mode
//   10461  tone index     10462  DCS index       10463  mode
//   10464  receive frequency (3)    10467  receive half-kilohertz mark, "P" or 0
//   10468  offset field (3)         10471  offset half-kilohertz mark
//   10472  name (8)                 10480  record bytes 20-21 (clone write only)
//   10482  current memory channel, 0-based
//   10484  copy of that channel's flag byte
//   10494  current band of the first bank        10495  of the second bank
inline constexpr std::size_t kOperatingMode = 10'451;
inline constexpr std::size_t kVfoBankSelector = 10'454;
inline constexpr std::size_t kVfoSlotIndex = 10'455;
inline constexpr std::size_t kOperatingGrid = 10'456;
inline constexpr std::size_t kOperatingPower = 10'457;
inline constexpr std::size_t kOperatingStep = 10'458;
inline constexpr std::size_t kOperatingShift = 10'459;
inline constexpr std::size_t kOperatingToneMode = 10'460;
inline constexpr std::size_t kOperatingTone = 10'461;
inline constexpr std::size_t kOperatingDcs = 10'462;
inline constexpr std::size_t kOperatingRadioMode = 10'463;
inline constexpr std::size_t kOperatingReceive = 10'464;
inline constexpr std::size_t kOperatingReceiveMark = 10'467;
inline constexpr std::size_t kOperatingOffset = 10'468;
inline constexpr std::size_t kOperatingOffsetMark = 10'471;
inline constexpr std::size_t kOperatingName = 10'472;
inline constexpr std::size_t kOperatingKept = 10'480;
inline constexpr std::size_t kCurrentMemory = 10'482;
inline constexpr std::size_t kCurrentMemoryFlags = 10'484;
inline constexpr std::size_t kCurrentBandA = 10'494;
inline constexpr std::size_t kCurrentBandB = 10'495;

// Makes the operating state follow the channel records: after the memory list is accepted, after a
// merge, and before the memory list or the VFO editor opens. Operating modes other than 0..5 leave
// it alone.
void RefreshOperatingState(CloneImage& image);

// Makes the operating state follow the VFO slot that byte 10455 names, before a clone write. The
// half-kilohertz marks stay; a bank selector above 1 changes nothing.
void MirrorOperatingChannel(CloneImage& image);

}  // namespace qz7
