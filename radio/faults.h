#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "radio/mode.h"

namespace qz7radio {

// What can go wrong on the cable or in the radio, on demand.
enum class FaultKind {
  kNoise,
  kStall,
  kDrop,
  kFlip,
  kDouble,
  kFlipEcho,
  kChecksum,
  kBadAck,
  kNoAck,
  kNoEcho,
  kHangup,
};

inline constexpr int kNoPosition = -1;

// `position` counts the bytes of an exchange from 0: the radio's own while it sends, the program's
// while it receives. For kFlipEcho it always counts the program's, for kBadAck the radio's answers.
// Kinds that happen at no place in particular have kNoPosition.
struct Fault {
  FaultKind kind;
  int position = kNoPosition;
  bool played = false;
};

// Each fault is played once, and all of them in the first exchange only, so that a second try goes
// through.
struct FaultList {
  std::vector<Fault> faults;
  bool armed = true;
};

// Reads "flip@3000", "flip" (the kind's usual position) or "noise". Without a result `reason` says
// what is wrong with the text.
std::optional<Fault> ParseFault(std::string_view text, std::string& reason);

// One to three faults of different kinds that can happen in this mode. The same seed and mode
// choose the same faults on every machine.
std::vector<Fault> PickFaults(std::uint64_t seed, Mode mode);

// Whether a fault of this kind happens now (at this position); it counts as played from then on.
bool Play(FaultList& list, FaultKind kind);
bool PlayAt(FaultList& list, FaultKind kind, std::size_t position);

// Called at the end of each attempt. One that the program never answered is no exchange (nobody may
// have been listening) unless a fault of its own explains the silence; the faults stay due then,
// noise that nobody heard among them. Returns whether it was an exchange.
bool SettleFaults(FaultList& list, bool answered);

// "flip@3000"
std::string FaultName(const Fault& fault);

// A paragraph of the help text with a line or two for each kind.
std::string FaultHelp();

}  // namespace qz7radio
